// What users may type, as a table that is kept with a release, and what a later version takes from them.
#include "vorn/host/abbreviations.h"

#include <gtest/gtest.h>

#include "vorn/host.h"

namespace host = vorn::host;

namespace {

enum class Format { text, json };

using Declare = void (*)(host::Parser&);

host::Abbreviations abbreviationsOf(Declare declare) {
    host::Parser parser("tool");
    declare(parser);
    return parser.abbreviations();
}

/// The sentences, a line each.
std::string broken(Declare before, Declare after) {
    std::string text;
    for (const host::BrokenAbbreviation& each :
         host::brokenAbbreviations(abbreviationsOf(before), abbreviationsOf(after)))
        text += each.text() + "\n";
    return text;
}

}  // namespace

TEST(Abbreviations, areATextThatReadsBackToTheSame) {
    const host::Abbreviations table = abbreviationsOf([](host::Parser& parser) {
        parser.version("1.0");
        parser.add<std::string>("output-dir,o", "Where.");
        parser.add<Format>("format", "What.")
            .named({{"text", Format::text}, {"json", Format::json}, {"plain", Format::text}});
        parser.addSwitch("verbose", "Say more.").global();
        host::Parser& remove = parser.command("remove,rm", "Removes.");
        remove.addFlag("force", "Now.");
        remove.addPositional<std::string>("what", "What.").allow("a b", "a,c\\");
    });
    EXPECT_EQ(table.text(),
              "vorn abbreviations 1\n"
              "option output-dir,o # o- o\n"
              "option format # f\n"
              "  choice text,plain # t p\n"
              "  choice json # j\n"
              "global switch verbose # verb n-\n"
              "flag help,h # h h\n"
              "flag version # vers\n"
              "command remove,rm # re rm\n"
              "  flag force # f\n"
              "  argument what\n"
              "    choice a\\x20b # a\\x20\n"
              "    choice a\\x2cc\\x5c # a\\x2c\n"
              "  flag help,h # h h\n"
              "end\n");
    EXPECT_EQ(host::Abbreviations::read(table.text()).text(), table.text());
    ASSERT_EQ(table.all().size(), 18U);
    EXPECT_EQ(table.all()[14].name, "a b");
    EXPECT_EQ(table.all()[14].command, "remove");
    EXPECT_EQ(table.all()[14].option, "what");
    EXPECT_EQ(table.all()[14].shortest, "a ");

    const char* const lines =
        "vorn abbreviations 1\n"
        "# a remark\n"
        "option odd # od\n"
        "  choice b\\,b\\x\n"
        "  choice \\x7fa\n"
        "flag .a\n"
        "flag abcdefghi-abcdefghi-abcdefghi-abcdefghi-ab-abcdefghi\n"
        "command outer\n"
        "  command inner\n"
        "    flag f\n"
        "    argument one\n"
        "      choice x\n"
        "  end\n"
        "end\n";
    EXPECT_EQ(host::Abbreviations::read(lines).text(),
              "vorn abbreviations 1\n"
              "option odd # o\n"
              "  choice b\\x5c,b\\x5cx # b b\n"
              "  choice \\x7fa # \\x7f\n"
              "flag .a # .a\n"
              "flag abcdefghi-abcdefghi-abcdefghi-abcdefghi-ab-abcdefghi # a-----\n"
              "flag help,h # h h\n"
              "command outer # o\n"
              "  flag help,h # h h\n"
              "  command inner # i\n"
              "    flag f # f\n"
              "    argument one\n"
              "      choice x # x\n"
              "    flag help,h # h h\n"
              "  end\n"
              "end\n");
    EXPECT_EQ(host::Abbreviations::read(lines).all().back().command, "outer inner");

    for (const char* text :
         {"", "vorn abbreviations 2\n", "vorn abbreviations 1\nend\n", "vorn abbreviations 1\ncommand a\n",
          "vorn abbreviations 1\nchoice a\n", "vorn abbreviations 1\noption a,a\n",
          "vorn abbreviations 1\nthing a\n", "vorn abbreviations 1\noption a\n  choice \\xZZ\n",
          "vorn abbreviations 1\noption\n"})
        EXPECT_THROW((void)host::Abbreviations::read(text), std::invalid_argument) << text;
}

TEST(Abbreviations, ofALaterVersionAreComparedWithWhatWasPromised) {
    const struct {
        Declare before;
        Declare after;
        const char* said;
    } cases[] = {
        {[](host::Parser& parser) { parser.addFlag("output-dir", ""); },
         [](host::Parser& parser) {
             parser.addFlag("input-dir", "");
             parser.addFlag("output-dir", "");
         },
         ""},
        {[](host::Parser& parser) { parser.addFlag("output-dir", ""); },
         [](host::Parser& parser) {
             parser.addFlag("output-dir", "");
             parser.addFlag("over-dir", "");
         },
         "'--o-' meant '--output-dir' and is ambiguous now: '--output-dir', '--over-dir' (and 3 longer "
         "forms)\n"},
        // A name of one word takes nothing from one of two.
        {[](host::Parser& parser) { parser.addFlag("output-dir", ""); },
         [](host::Parser& parser) {
             parser.addFlag("output-dir", "");
             parser.addFlag("output", "");
         },
         ""},
        // What was a beginning is another name in full.
        {[](host::Parser& parser) { parser.addFlag("size", ""); },
         [](host::Parser& parser) {
             parser.addFlag("size", "");
             parser.addFlag("s", "");
         },
         "'-s' meant '--size' and means '-s' now\n"},
        // Two names of one option are no ambiguity; those of two are.
        {[](host::Parser& parser) { parser.addFlag("colour,color", ""); },
         [](host::Parser& parser) {
             parser.addFlag("color", "");
             parser.addFlag("colour", "");
         },
         "'-c' meant '--colour' and is ambiguous now: '--color', '--colour' (and 3 longer forms)\n"
         "'-c' meant '--color' and is ambiguous now: '--color', '--colour' (and 4 longer forms)\n"},
        {[](host::Parser& parser) { parser.addFlag("size", ""); },
         [](host::Parser& parser) { parser.addFlag("width,size", ""); }, ""},
        {[](host::Parser& parser) { parser.addFlag("size", ""); },
         [](host::Parser& parser) { parser.addFlag("sizes", ""); },
         "'-s' meant '--size' and means '--sizes' now (and 3 longer forms)\n"},
        {[](host::Parser& parser) { parser.addFlag("width,size", ""); },
         [](host::Parser& parser) {
             parser.addFlag("width", "");
             parser.addFlag("height,size", "");
         },
         "'-s' meant '--size' and means '--height' now (and 3 longer forms)\n"
         "'--he' meant '--help' and is ambiguous now: '--height', '--help'\n"},
        // A name is dropped: what shortens the other one still means the same.
        {[](host::Parser& parser) { parser.addFlag("format,for,bow", ""); },
         [](host::Parser& parser) { parser.addFlag("format", ""); },
         "'-b' meant '--bow' and is unknown now (and 2 longer forms)\n"},
        // A switch that becomes a flag loses its "no-" form.
        {[](host::Parser& parser) { parser.addSwitch("ab", ""); },
         [](host::Parser& parser) { parser.addFlag("ab", ""); },
         "'--n-' meant '--no-ab' and is unknown now (and 5 longer forms)\n"},
        {[](host::Parser& parser) { parser.addFlag("number-ab", ""); },
         [](host::Parser& parser) {
             parser.addFlag("number-ab", "");
             parser.addSwitch("ab", "");
         },
         "'--n-' meant '--number-ab' and is ambiguous now: '--number-ab', '--no-ab' (and 2 longer forms)\n"},
        // Choices.
        {[](host::Parser& parser) { parser.add<std::string>("as", "").allow("json", "text"); },
         [](host::Parser& parser) { parser.add<std::string>("as", "").allow("json", "jsonl"); },
         "'--as=j' meant '--as=json' and is ambiguous now: '--as=json', '--as=jsonl' (and 2 longer forms)\n"
         "'--as=t' meant '--as=text' and is unknown now (and 3 longer forms)\n"},
        {[](host::Parser& parser) { parser.add<std::string>("as", "").allow("json"); },
         [](host::Parser& parser) { parser.add<std::string>("as", ""); },
         "'--as=j' meant '--as=json' and means '--as=j' now (and 2 longer forms)\n"},
        {[](host::Parser& parser) {
             parser.add<int>("number", "").allow(1, 2);  // never shortened
             parser.add<std::string>("gone", "").allow("one");
             parser.addPositional<std::string>("what", "").allow("two", "three");
         },
         [](host::Parser& parser) {
             parser.add<int>("number", "").allow(1, 22);
             parser.addPositional<std::string>("what", "").allow("three");
             parser.addPositional<std::string>("free", "");
         },
         "'-g' meant '--gone' and is unknown now (and 3 longer forms)\n"},
        // Commands that are gone, with all that was behind them.
        {[](host::Parser& parser) { parser.command("store", "").command("add,new", "").addFlag("fast", ""); },
         [](host::Parser& parser) { parser.command("store", "").addFlag("fast", ""); },
         "store: 'a' meant 'add' and is unknown now (and 2 longer forms)\n"
         "store: 'n' meant 'new' and is unknown now (and 2 longer forms)\n"},
        // Commands, and what stands behind them; a new global option reaches into them.
        {[](host::Parser& parser) { parser.command("remove,rm", "").addFlag("far", ""); },
         [](host::Parser& parser) {
             parser.addFlag("fast", "").global();
             parser.command("rename", "");
             parser.command("delete,remove", "").addFlag("far", "");
         },
         "'re' meant 'remove' and is ambiguous now: 'rename', 'remove'\n"
         "'rm' was taken and is unknown now\n"
         "remove: '-f' meant '--far' and is ambiguous now: '--far', '--fast' (and 1 longer form)\n"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(broken(each.before, each.after), each.said);
        EXPECT_EQ(broken(each.after, each.after), "");
    }
}
