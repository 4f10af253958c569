// How a host tests its command line: no process, no files, no environment but the one that a test makes up.
#include <gtest/gtest.h>

#include "command_line.h"

namespace {

namespace host = vorn::host;

TEST(CommandLine, contradictsItselfNowhere) { notes::CommandLine().parser.verify(); }

TEST(CommandLine, labelsBelongToTheNotesThatFollow) {
    notes::CommandLine line;
    const host::Outcome outcome =
        line.parser.parse({"add", "a", "-l", "home,urgent", "b", "c", "--lab=work", "d"});
    ASSERT_TRUE(outcome);
    std::string found;
    for (const notes::Labelled& note : notes::notesToAdd(line.add, outcome.result())) {
        found += note.text;
        for (const std::string& label : note.labels)
            found += " " + label;
        found += ";";
    }
    EXPECT_EQ(found, "a;b home urgent;c home urgent;d work;");
}

TEST(CommandLine, theStoreComesFromTheHighestLayerThatHasIt) {
    const std::vector<host::Variable> environment = {{"NOTES_STORE", "env.txt"}};
    notes::CommandLine line;
    line.parser.settings("--store=set.txt", "notes.conf");
    const auto placeOf = [&line](const host::Outcome& outcome) {
        const host::Result& result = outcome.result();
        return result[line.store].string() + " from " + result.origin(line.store).text();
    };
    EXPECT_EQ(placeOf(line.parser.parse({"list"})), "set.txt from notes.conf:1");
    EXPECT_EQ(placeOf(line.parser.parse({"list"}, environment)), "env.txt from NOTES_STORE");
    EXPECT_EQ(placeOf(line.parser.parse({"list", "--store=x"}, environment)), "x from argument 2");
}

TEST(CommandLine, mistakesAreFound) {
    const struct {
        std::vector<std::string> arguments;
        host::Error::Kind kind;
        const char* text;
    } cases[] = {
        {{}, host::Error::Kind::missingCommand, "missing command: add, list, remove"},
        {{"lsit"}, host::Error::Kind::unknownCommand, "unknown command 'lsit'; did you mean 'list'?"},
        {{"add"}, host::Error::Kind::missingArgument, "missing argument: TEXT"},
        {{"list", "--width=5"}, host::Error::Kind::outOfRange, "'5' is too small for '--width': at least 20"},
        {{"remove", "1x"}, host::Error::Kind::invalidValue, "'1x' is not a whole number, which 'ID' takes"},
    };
    notes::CommandLine line;
    for (const auto& each : cases) {
        const host::Outcome outcome = line.parser.parse(each.arguments);
        ASSERT_FALSE(outcome) << each.text;
        EXPECT_EQ(outcome.error().kind, each.kind);
        EXPECT_EQ(outcome.error().text(), each.text);
    }
}

}  // namespace
