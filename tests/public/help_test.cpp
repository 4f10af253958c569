// Whole help texts: groups, headings, value syntax, defaults, and the wrapping of words.
#include "support/fixture.h"

namespace vorn_3_1::public_tests {

// The heading in its column, or a column of blanks.
static std::string column(std::string heading = "") {
    heading.resize(30, ' ');
    return heading;
}

TEST(Help, listsGroupsWithHeadingsAndDefaults) {
    const Cli cli;
    EXPECT_STREQ(cli.parser->getDescription(), "");
    cli.option("output,o", qel_string, "Writes.", "general:General options")->defaultValue("a.out");
    cli.option("quiet", qel_empty, "Says nothing.", "other")->defaultValue(1);
    cli.option("verbose,v", qel_bool, "Says more.", "general:A title too late")->defaultValue(true);
    cli.option("file", qel_string, "Positional.", "general")->positional();
    cli.option("color", qel_bool, "Paints.", "general")->defaultValue(false);
    cli.option("secret", qel_uint, "Hides.", "vorn_hidden:Internals")->synonym("s");
    cli.option("plain", qel_bool, "Neither.", "other")->allowValue(true);
    cli.option("mode,m,mo", qel_string, "How.", "other")
        ->defaultValue("a")
        ->allowValue("a")
        ->allowValue("bcde");
    cli.option("mask", qel_uint64, "Which bits.", "other")->defaultValue(0x1FULL);
    cli.option("ratio", qel_double, "", "other");
    cli.option("wide", qel_wstring, "Unreadable.", "other")->defaultValue(L"w");
    cli.option("one,two,three", qel_int, "Refused.", "lost:Lost");
    cli.option("unnamed,group", qel_int64, "Ungrouped.", ":Untitled: or not");
    EXPECT_EQ(cli.parser->getDescription(),
              "general\n General options\n\n" +                                 //
                  column("-o, -output=<string> (a.out)") + "Writes.\n" +        //
                  "-v, -verbose (default) | -no-verbose\n" +                    //
                  column() + "Says more.\n" +                                   //
                  column("-color | -no-color (default)") + "Paints.\n\n" +      //
                  "other\n" +                                                   //
                  column("-quiet") + "Says nothing.\n" +                        //
                  column("-plain | -no-plain") + "Neither.\n" +                 //
                  column("-mo, -m, -mode=a | bcde (a)") + "How.\n" +            //
                  "-mask=<unsigned 64 bit or hex> (31)\n" +                     //
                  column() + "Which bits.\n" +                                  //
                  column("-wide=<> ()") + "Unreadable.\n\n" +                   //
                  "lost\n Lost\n\n\n" +                                         //
                  " Untitled: or not\n\n-group, -unnamed=<64 bit integer>\n" +  //
                  column() + "Ungrouped.\n\n");
    EXPECT_EQ(cli.parser->getDescription(true),
              "vorn_hidden\n Internals\n\n-s, -secret=<unsigned integer>\n" + column() + "Hides.\n\n");
    EXPECT_EQ(cli.parser->getDescription(), cli.parser->getDescription(false));  // one kept text
}

TEST(Help, headingsAndWordsKeepTheirColumns) {
    const auto x = [](std::size_t count) { return std::string(count, 'x'); };
    const struct {
        std::string name, description, help;
    } cases[] = {
        {x(28), "d", "-" + x(28) + " d\n"},
        {x(29), "d", "-" + x(29) + "\n" + column() + "d\n"},  // 30 with the hyphen
        {"a", "", ""},                                        // nothing to describe: not listed
        {x(29), "", "-" + x(29) + "\n"},
        {"a", "  \n ", column("-a") + "\n"},
        {"a", x(48) + " yy", column("-a") + x(48) + " \n" + column() + "yy\n"},  // the blank still fits
        {"a", "\n b \n\n  c", column("-a") + "b \n" + column() + "c\n"},         // no empty lines
    };
    for (const auto& [name, description, help] : cases) {
        const Cli cli;
        cli.option(name.c_str(), qel_empty, description.c_str());
        EXPECT_EQ(cli.parser->getDescription(), help + "\n") << description;
    }
    const Cli titled;
    titled.option("a", qel_empty, "", (x(99) + ":" + x(80) + "\ny").c_str());
    EXPECT_EQ(titled.parser->getDescription(), x(99) + "\n " + x(79) + "\n x\n y\n\n\n");
}

TEST(Help, anOptionWithoutNamesSpoilsItsHelp) {
    const Cli cli;
    cli.option("a", qel_empty, "d");
    cli.option("", qel_int, "d", "vorn_hidden");
    EXPECT_EQ(cli.parser->getDescription(), column("-a") + "d\n\n");
    EXPECT_STREQ(cli.parser->getErrorDesc(), "");
    EXPECT_STREQ(cli.parser->getDescription(true), "Unknown error handled.");
    EXPECT_STREQ(cli.parser->getErrorDesc(), "Unknown error handled.");
}

}  // namespace vorn_3_1::public_tests
