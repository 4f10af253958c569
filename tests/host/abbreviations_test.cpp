// What users may type, as a table that is kept with a release, and what a later version takes from them.
#include "vorn/host/abbreviations.h"

#include "host/fixture.h"

namespace {

enum class Format { text, json };

/// The sentences about two tables without their headings, a line each.
std::string broken(const std::string& before, const std::string& after) {
    const auto read = [](const std::string& names) {
        return host::Abbreviations::read("vorn abbreviations 1\n" + names);
    };
    std::string text;
    for (const host::BrokenAbbreviation& each : host::brokenAbbreviations(read(before), read(after)))
        text += each.text() + "\n";
    return text;
}

}  // namespace

TEST(Abbreviations, areATextThatReadsBackToTheSame) {
    host::Parser parser("tool");
    parser.version("1.0");
    parser.add<std::string>("output-dir,o", "Where.");
    parser.add<Format>("format", "What.")
        .named({{"text", Format::text}, {"json", Format::json}, {"plain", Format::text}});
    parser.addSwitch("verbose", "Say more.").global();
    host::Parser& remove = parser.command("remove,rm", "Removes.");
    remove.addFlag("force", "Now.");
    remove.addPositional<std::string>("what", "What.").allow("a b", "a,c\\");
    parser.add<int>("number", "").allow(1, 2);  // never shortened
    const host::Abbreviations table = parser.abbreviations();
    EXPECT_EQ(table.text(),
              "vorn abbreviations 1\n"
              "option output-dir,o # o- o\n"
              "option format # f\n"
              "  choice text,plain # t p\n"
              "  choice json # j\n"
              "global switch verbose # verb n-\n"
              "option number # n\n"
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
    ASSERT_EQ(table.all().size(), 19U);
    EXPECT_EQ(table.all()[15].name, "a b");
    EXPECT_EQ(table.all()[15].command, "remove");
    EXPECT_EQ(table.all()[15].option, "what");
    EXPECT_EQ(table.all()[15].shortest, "a ");
    EXPECT_TRUE(table.all()[15].isPositional);

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
        const char* before;
        const char* after;
        const char* said;
    } cases[] = {
        {"flag output-dir", "flag input-dir\nflag output-dir", ""},
        {"flag output-dir", "flag output-dir\nflag over-dir",
         "'--o-' meant '--output-dir' and is ambiguous now: '--output-dir', '--over-dir' (and 3 longer "
         "forms)\n"},
        // A name of one word takes nothing from one of two.
        {"flag output-dir", "flag output-dir\nflag output", ""},
        // What was a beginning is another name in full.
        {"flag size", "flag size\nflag s", "'-s' meant '--size' and means '-s' now\n"},
        // Two names of one option are no ambiguity; those of two are.
        {"flag colour,color", "flag color\nflag colour",
         "'-c' meant '--colour' and is ambiguous now: '--color', '--colour' (and 3 longer forms)\n"
         "'-c' meant '--color' and is ambiguous now: '--color', '--colour' (and 4 longer forms)\n"},
        {"flag size", "flag width,size", ""},
        {"flag size", "flag sizes", "'-s' meant '--size' and means '--sizes' now (and 3 longer forms)\n"},
        {"flag width,size", "flag width\nflag height,size",
         "'-s' meant '--size' and means '--height' now (and 3 longer forms)\n"
         "'--he' meant '--help' and is ambiguous now: '--height', '--help'\n"},
        // A name is dropped: what shortens the other one still means the same.
        {"flag format,for,bow", "flag format",
         "'-b' meant '--bow' and is unknown now (and 2 longer forms)\n"},
        // A switch that becomes a flag loses its "no-" form.
        {"switch ab", "flag ab", "'--n-' meant '--no-ab' and is unknown now (and 5 longer forms)\n"},
        {"flag number-ab", "flag number-ab\nswitch ab",
         "'--n-' meant '--number-ab' and is ambiguous now: '--number-ab', '--no-ab' (and 2 longer forms)\n"},
        // Choices.
        {"option as\nchoice json\nchoice text", "option as\nchoice json\nchoice jsonl",
         "'--as=j' meant '--as=json' and is ambiguous now: '--as=json', '--as=jsonl' (and 2 longer forms)\n"
         "'--as=t' meant '--as=text' and is unknown now (and 3 longer forms)\n"},
        {"option as\nchoice json", "option as",
         "'--as=j' meant '--as=json' and means '--as=j' now (and 2 longer forms)\n"},
        {"option gone\nchoice one\nargument what\nchoice two\nchoice three", "argument what\nchoice three",
         "'-g' meant '--gone' and is unknown now (and 3 longer forms)\n"
         "'tw' meant 'two' and is unknown now (and 1 longer form)\n"},
        // Commands that are gone, with all that was behind them.
        {"command store\ncommand add,new\nflag fast\nend\nend", "command store\nflag fast\nend",
         "store: 'a' meant 'add' and is unknown now (and 2 longer forms)\n"
         "store: 'n' meant 'new' and is unknown now (and 2 longer forms)\n"},
        // Commands, and what stands behind them; a new global option reaches into them.
        {"command remove,rm\nflag far\nend",
         "global flag fast\ncommand rename\nend\ncommand delete,remove\nflag far\nend",
         "'re' meant 'remove' and is ambiguous now: 'rename', 'remove'\n"
         "'rm' was taken and is unknown now\n"
         "remove: '-f' meant '--far' and is ambiguous now: '--far', '--fast' (and 1 longer form)\n"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(broken(each.before, each.after), each.said);
        EXPECT_EQ(broken(each.after, each.after), "");
    }
}
