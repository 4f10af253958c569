// What the companion says of each mistake, as a sentence and as data.
#include "host/fixture.h"
#include "vorn/host/byte_size.h"

namespace {

enum class FileFormat { text, json, jsonl };

std::string repeated(const char* text, int count) {
    return joined(Texts(static_cast<std::size_t>(count), text), "");
}

/// An image tool.
struct Errors : testing::Test {
    host::Parser parser{"thumbs", "Makes small copies of images."};
    Errors() {
        parser.version("1.4.0");
        parser.add<int>("quality,q", "").range(1, 100);
        parser.add<FileFormat>("format", "")
            .named({{"text", FileFormat::text}, {"json", FileFormat::json}, {"jsonl", FileFormat::jsonl}});
        (void)parser.add<int>("size", "").list(',');
        parser.add<std::string>("colour,color", "").allow("never", "auto", "always").implicit("auto");
        const auto folder = parser.add<std::string>("output-dir,o", "").metavar("DIR").required();
        parser.add<int>("shift", "").check([](int n) { return std::string(n == 13 ? "bad luck" : ""); });
        parser.addFlag("l", "");
        parser.add<bool>("strict", "");
        parser.addFlag("w", "");
        const auto quiet = parser.addSwitch("quiet", "").key();
        const auto verbose = parser.addCount("verbose,v", "").needs(folder.key()).key();
        parser.add<unsigned long long>("mask", "");
        parser.add<unsigned>("depth", "").minimum(2u);
        (void)parser.add<host::ByteSize>("block", "")
            .minimum({4})
            .allow(host::ByteSize{8}, host::ByteSize{16})
            .defaultTo(host::ByteSize{8});
        parser.add<std::string>("day", "")
            .allow("monday", "tuesday", "wednesday", "thursday", "friday", "saturday", "sunday")
            .allow("january", "february", "march", "april", "may", "june");
        parser.addPositional<std::string>("image", "");
        parser.exclusive({quiet, verbose});
    }

    void expectMistake(const std::string& typed, const std::string& text, Kind kind, const char* option) {
        const host::Outcome outcome = parser.parse({typed, "-o", "out", "a.png"});
        ASSERT_EQ(said(outcome), text);
        EXPECT_EQ(outcome.error().kind, kind) << typed;
        EXPECT_EQ(outcome.error().option, option) << typed;
        EXPECT_EQ(outcome.error().argument, typed);
        EXPECT_EQ(outcome.error().origin.text(), "argument 1");
    }
};

TEST_F(Errors, helpWithNamesThatNobodyKnows) {
    const std::string longName(65, 'x');
    const struct {
        std::string typed, text;
    } rows[] = {
        {"--outptu=x", "unknown option '--outptu'; did you mean '--output-dir'?"},
        {"--output=x", "unknown option '--output'; did you mean '--output-dir'?"},
        {"--dir=x", "unknown option '--dir'; did you mean '--output-dir'?"},
        {"-lw", "unknown option '-lw'; if '-l' and '-w' are meant, write them apart"},
        {"-q5", "unknown option '-q5'; if '-q' and '5' are meant, write them apart"},
        {"--no-quite", "unknown option '--no-quite'; did you mean '--no-quiet'?"},
        {"--no-strict", "unknown option '--no-strict'; '--strict' cannot be switched off"},
        {"--shift 5", "unknown option '--shift 5'; write '--shift=5'"},
        {"--output-dir:", "unknown option '--output-dir:'; write '--output-dir=DIR'"},
        {"-vxq", "unknown option '-vxq'"},
        {"--hlep", "unknown option '--hlep'; did you mean '--help'?"},
        {"--xyzzy", "unknown option '--xyzzy'"},  // nothing is near
        {"--" + longName, "unknown option '--" + longName + "'"},
        {"---", "'---' names no option"},
        {"--=x", "'--' names no option"},
        {"---quiet", "'---quiet' names no option"},
        {"-.", "'-.' names no option"},
        {"--\x1b[31m=\n", "unknown option '--\\x1B[31m'"},
    };
    for (const auto& row : rows)
        expectMistake(row.typed, row.text, Kind::unknownOption, "");
}

TEST_F(Errors, areWordedAndHoldTheirKindAndTheOption) {
    const std::string longText(65, 'x');
    const struct {
        std::string typed;
        std::string text;
        Kind kind;
        const char* option;
    } rows[] = {
        {"--ver", "'--ver' is ambiguous: --verbose, --version", Kind::ambiguousOption, ""},
        // where values begin and end
        {"--version=1", "'--version' takes no value", Kind::unexpectedValue, "version"},
        {"--no-quiet=1", "'--quiet' takes no value", Kind::unexpectedValue, "quiet"},
        {"--verbose=", "'--verbose' takes no value", Kind::unexpectedValue, "verbose"},
        {"--size=", "'--size=' has no value", Kind::missingValue, "size"},
        // values
        {"--quality=5x", "'5x' is not a whole number, which '--quality' takes", Kind::invalidValue,
         "quality"},
        {"-q=", "'-q=' has no value", Kind::missingValue, "quality"},
        {"--quality=99999999999", "'99999999999' is too large for '--quality': at most 100", Kind::outOfRange,
         "quality"},
        {"--quality=0", "'0' is too small for '--quality': at least 1", Kind::outOfRange, "quality"},
        {"--depth=-1", "'-1' is too small for '--depth': at least 2", Kind::outOfRange, "depth"},
        {"--mask=18446744073709551616",
         "'18446744073709551616' is too large for '--mask': at most 18446744073709551615", Kind::outOfRange,
         "mask"},
        {"--block=5", "'5' is not allowed for '--block': 8, 16", Kind::notAllowed, "block"},
        {"--day=teusday", "'teusday' is not allowed for '--day'; did you mean 'tuesday'?", Kind::notAllowed,
         "day"},
        {"--day=" + longText, "'" + longText + "' is not allowed for '--day'", Kind::notAllowed, "day"},
        {"--shift=13", "'13' is refused for '--shift': bad luck", Kind::refused, "shift"},
        {"--strict=y", "'y' is neither yes nor no, which '--strict' takes", Kind::invalidValue, "strict"},
        {"--format=j", "'j' is ambiguous for '--format': json, jsonl", Kind::ambiguousValue, "format"},
        {"--format=xml", "'xml' is not allowed for '--format': text, json, jsonl", Kind::notAllowed,
         "format"},
        {"--color=a", "'a' is ambiguous for '--colour': auto, always", Kind::ambiguousValue, "colour"},
        {"--size=1,", "'1,' has an empty item", Kind::emptyItem, "size"},
        {"--size=,1", "',1' has an empty item", Kind::emptyItem, "size"},
        {"--size=1,,2", "'1,,2' has an empty item", Kind::emptyItem, "size"},
        {"--size=1,b,c", "'b' is not a whole number, which '--size' takes", Kind::invalidValue, "size"},
    };
    for (const auto& row : rows)
        expectMistake(row.typed, row.text, row.kind, row.option);
}

TEST_F(Errors, neitherWriteToTheTerminalNorFillIt) {
    const std::string longText(1000, 'x');
    const struct {
        std::string value, shown;
    } rows[] = {
        {"\t\x7f\xff\xc2\x9b\xe2\x80\xae", "\\t\\x7F\\xFF\\x9B\\u202E"},
        // joiner, mark, too long, too high
        {"\xe2\x81\xa0\xef\xbb\xbf\xe0\x80\xaf\xf4\x90\x80\x80",
         "\\u2060\\uFEFF\\xE0\\x80\\xAF\\xF4\\x90\\x80\\x80"},
        {std::string(200, '\x80'), repeated("\\x80", 83) + "..." + repeated("\\x80", 77)},
        {longText, longText.substr(0, 80) + "..." + longText.substr(0, 80)},
    };
    for (const auto& [value, shown] : rows)
        expectMistake("--shift=" + value, "'" + shown + "' is not a whole number, which '--shift' takes",
                      Kind::invalidValue, "shift");
}

TEST_F(Errors, ofSeveralArgumentsAreAllThereWhatIsMissingLast) {
    const struct {
        Texts typed;
        const char* text;
    } rows[] = {
        {{"--shift", "--x"},
         "'--shift' needs a value; for one that begins with '-', write '--shift=--x'\nunknown option '--x'\n"
         "missing option: --output-dir DIR\nmissing argument: IMAGE"},
        {{"a", "--output-dir"}, "'--output-dir' needs a value"},  // it is not missing as well
        {{"a", "-v"}, "missing option: --output-dir DIR\n'--verbose' needs '--output-dir' as well"},
        {{"-o=out", "a", "b", "--qu=x"}, "unexpected argument 'b'\n'--qu' is ambiguous: --quality, --quiet"},
        {{"-o=out", "--depth=x", "a", "--mask=y", "b"},
         "'x' is not a whole number, which '--depth' takes\n'y' is not a whole number, which '--mask' takes\n"
         "unexpected argument 'b'"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(said(parser.parse(row.typed)), row.text) << joined(row.typed);
}

TEST_F(Errors, areNotHelpedWithWhereThereAreMany) {
    Texts typed(20, "--outptu=x");
    typed.insert(typed.end(), {"-lw", "--outptu=x", "-o=x", "a"});
    const host::Outcome outcome = parser.parse(typed);
    ASSERT_EQ(outcome.errors().size(), 22u);
    EXPECT_EQ(outcome.errors()[19].text(), "unknown option '--outptu'; did you mean '--output-dir'?");
    EXPECT_EQ(outcome.errors()[20].text(), "unknown option '-lw'");
    EXPECT_EQ(outcome.errors()[21].text(), "unknown option '--outptu'");
    host::Parser many("tool");
    for (int i = 0; i < 13; ++i)
        many.command("command-" + std::to_string(i), "");
    EXPECT_EQ(said(many.parse({})), "missing command");
}

TEST_F(Errors, holdWhatAHostNeedsToWordThemItself) {
    const host::Outcome outcome =
        parser.parse({"--size=1,b", "--ver", "--quality=101", "--shift=13", "--format=jsno", "-o=x", "a"});
    ASSERT_EQ(outcome.errors().size(), 5u);
    EXPECT_EQ(outcome.errors()[0].value, "b");
    EXPECT_EQ(outcome.errors()[1].candidates, (Texts{"verbose", "version"}));
    EXPECT_EQ(outcome.errors()[1].libraryText,
              "Ambiguous option 'ver' in argument: '--ver', could be: 'verbose', 'version'");
    EXPECT_EQ(outcome.errors()[2].reason, "at most 100");
    EXPECT_EQ(outcome.errors()[3].reason, "bad luck");
    EXPECT_EQ(outcome.errors()[4].candidates, (Texts{"json", "jsonl"}));
    EXPECT_EQ(thrownBy<std::logic_error>([&] {
                  (void)parser.parse({"-o=x", "a"}).error();
              }),
              "vorn: nothing was wrong, so there is no error to be read");
}

TEST(Suggestions, areTheNearestAndNeverFarFetched) {
    host::Parser parser("tool");
    for (const char* name : {"input-file", "input-format", "input-filter", "input-field", "output",
                             "frobnicate", "ab", "home-dir", "work-dir", "dry-run", "log-level", "log-file"})
        parser.addFlag(name, "");
    parser.addFlag("secret", "").hidden();
    parser.addFlag("older", "").deprecated("use --output");
    const struct {
        const char* typed;
        Texts candidates;  // the best first, three at most
    } rows[] = {
        {"--ouptut", {"output"}},                                       // swapped neighbours
        {"--format", {"input-format"}},                                 // a word is left out
        {"--inptu-f", {"input-file", "input-format", "input-filter"}},  // three at most
        {"--input-feild", {"input-field"}},
        {"--frobincat", {"frobnicate"}},
        {"--secert", {}},
        {"--oldre", {}},
        {"--dir", {"home-dir", "work-dir"}},
        {"--ho-me-dir", {"home-dir"}},
        {"--l-x", {}},
        {"--x", {}},
        {"--ba", {}},
        {"--zzzzzzzz", {}},
        {"--outrageous", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parser.parse({row.typed}).error().candidates, row.candidates) << row.typed;
}

TEST(Origins, areShownInFrontUnlessItIsTheCommandLine) {
    host::Parser parser("tool");
    parser.add<int>("n", "").environment("TOOL_N");
    parser.responseFiles().settings("# one\n\n --n=x", "bad\x1b.conf");
    const MemoryFile file("--n\ny\n");
    const host::Outcome outcome = parser.parse({"--n=1", "@" + file.path, "--n=z"}, {{"TOOL_N", "w"}});
    const std::string takes = " is not a whole number, which '-n' takes";
    EXPECT_EQ(said(outcome), "bad\\x1B.conf:3: 'x'" + takes + "\nTOOL_N: 'w'" + takes + "\n" + file.path +
                                 ":1: 'y'" + takes + "\n'z'" + takes);
    EXPECT_EQ(outcome.errors()[0].origin.line, 3);
    EXPECT_EQ(outcome.errors()[3].origin.text(), "argument 3");
    EXPECT_EQ(host::Origin().text(), "nowhere");
    host::Parser odd("tool");
    odd.settings("\n--define=x\n", "");  // has a place all the same
    odd.addPositional<int>("p", "").metavar("A\033B");
    odd.add<std::string>("m", "").maximum("\033[31mx");
    EXPECT_EQ(said(odd.parse({"x", "--m=zz"})),
              "settings:2: unknown option '--define'\n'x' is not a whole number, which 'A\\x1BB' takes\n"
              "'zz' is too large for '-m': at most \\x1B[31mx");
}

}  // namespace
