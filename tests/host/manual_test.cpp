// The manual page: whole texts, and what formatters say of them.
#include "host/fixture.h"
#include "host/large_tool.h"

namespace {

/// Lets a formatter check the page, where there is one.
void expectNoComplaints(const std::string& page) {
    if (std::system("command -v mandoc >/dev/null 2>&1") != 0) GTEST_SKIP() << "mandoc is not installed";
    const MemoryFile file(page), said;
    const int code = std::system(("mandoc -T lint " + file.path + " > " + said.path + " 2>&1").c_str());
    EXPECT_EQ(contentOf(said.path), "") << page;
    EXPECT_EQ(code, 0);
}

}  // namespace

TEST(Manual, tellsAllOfATool) {
    host::Parser parser("nctl", "Keeps notes.\n\n.profile isn't read; C:\\notes is.");
    parser.version("1.4.0").settings("~/.nctl", host::Missing::allowed).epilogue("Grüße");
    (void)parser.add<std::string>("store,s", "Where the notes are.")
        .environment("NCTL_STORE")
        .defaultTo("~/.notes")
        .global();
    parser.addSwitch("quiet", "Say nothing.").group("Messages");
    parser.addFlag("trace", "").hidden();
    host::Parser& add = parser.command("add,new", "Adds a note.");
    (void)add.add<std::string>("label", "Words that describe it.").allow("one", "two").list(',');
    (void)add.addPositional<std::string>("text", "What it says.").optional();
    EXPECT_EQ(parser.manual("2026-01-02"), page("nctl.1"));
    expectNoComplaints(parser.manual());
}

TEST(Manual, tellsWhatIsRare) {
    host::Parser parser("tool");
    parser.settings("--a=1", "text").settings("one").settings("two");
    parser.add<int>("a", "").environment("A").metavar("MY_N");
    parser.add<int>("hidden", "").environment("HIDDEN").hidden();
    parser.add<int>("old", "").environment("OLD").deprecated("");
    parser.command("do", "").epilogue("`Later^'").addPositional<std::string>("odd", "Odd.").metavar("--");
    const std::string page = parser.manual("2026-01-02 <now>");
    const struct {
        const char* text;
        bool isThere;
    } rows[] = {
        {".TH \"TOOL\" \"1\" \"2026\\-01\\-02 <now>\" \"tool\"\n", true},
        {".B \"\\fB\\-a\\fR \\fIMY_N\\fR\"\n", true},
        {"\\fB\\-\\-\\fR", true},
        {".PP\n\\(gaLater\\(ha\\(aq\n", true},
        {".SH FILES\n.TP\n.B \"one\"\n", true},
        {".TP\n.B \"two\"\n", true},
        {".B \"text\"", false},
        {".B \"A\"", true},
        {"HIDDEN", false},
        {"OLD", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(page.find(row.text) != std::string::npos, row.isThere) << row.text << "\n" << page;
}

TEST(Manual, isOfTheDayThatABuildIsSaidToBe) {
    const struct {
        const char* seconds;
        const char* day;
    } rows[] = {{"0", "1970-01-01"},
                {"1767312000", "2026-01-02"},
                {"9223372036854775807", "1970-01-01"},  // no year has so many digits
                {"today", nullptr}};
    for (const auto& row : rows) {
        setenv("SOURCE_DATE_EPOCH", row.seconds, 1);
        const std::string head = host::Parser("tool").manual().substr(0, 26);
        unsetenv("SOURCE_DATE_EPOCH");
        const std::string today = host::Parser("tool").manual().substr(0, 26);
        EXPECT_EQ(head, row.day != nullptr ? ".TH \"TOOL\" \"1\" \"" + std::string(row.day) : today)
            << row.seconds;
    }
}

TEST(Manual, isCleanInEveryLanguage) {
    for (const auto language : {large_tool::english, large_tool::german, large_tool::chinese})
        expectNoComplaints(large_tool::make(language).manual("2026-01-02"));
}

TEST(Manual, isCleanWithTextsThatNobodyShouldWrite) {
    const std::string hostile[] = {
        "",     std::string(300, 'x'), "'.TH\n.SH\n\n\n  .sp\n\n", "\\fB\\",
        "\"\"", "a\tb\033[1m\xFF",     std::string(300, '.'),      "e\xCC\x81 \xF0\x9F\x98\x80\xE2\x80\x8D",
        "  "};
    for (const std::string& text : hostile) {
        host::Parser parser("tool", text);
        parser.epilogue(text).version(text).responseFiles();
        (void)parser.add<std::string>("name,n", text)
            .metavar(text)
            .group(text)
            .defaultTo(text)
            .environment("V" + text);
        (void)parser.command("command", text).addPositional<std::string>("argument", text).metavar(text);
        expectNoComplaints(parser.manual("2026-01-02"));
    }
}
