// Arguments as people type them: where options, values and positional arguments begin and end.
#include "host/fixture.h"

namespace {

/// A tool with an option of every kind; told by the flags of the row.
struct Arguments : testing::Test {
    /// What the line means: "define=[a|b] x=[1] -- rest", or what is wrong with it.
    template <class Prepare>
    static std::string meaning(const Texts& line, Prepare prepare) {
        host::Parser parser("tool");
        const auto define = parser.add<std::string>("define,D", "").repeated().key();
        const auto shift = parser.add<int>("shift,s", "").key();
        const auto colour = parser.add<std::string>("colour,c", "").implicit("auto").key();
        const auto verbose = parser.addCount("verbose,v", "").key();
        const auto quiet = parser.addSwitch("quiet,q", "").key();
        const auto flag = parser.addFlag("flag,f,flagged,fla-flag", "").key();
        parser.add<int>("7", "");
        prepare(parser);
        const host::Outcome outcome = parser.parse(line);
        if (!outcome) return said(outcome);
        const host::Result& result = outcome.result();
        std::string all;
        for (const std::string& text : result[define])
            all += " D=" + text;
        if (result[shift]) all += " s=" + std::to_string(*result[shift]);
        if (result[colour]) all += " c=" + *result[colour];
        if (result[verbose] > 0) all += " v" + std::to_string(result[verbose]);
        if (result.isGiven(quiet)) all += " q";
        if (result[flag]) all += " f";
        if (result.isGiven("7")) all += " 7=" + std::to_string(*result.value<int>("7"));
        try {
            for (const std::string& text : result.values<std::string>("text"))
                all += " [" + text + "]";
        } catch (const std::logic_error&) {
        }  // not declared
        try {
            for (const double number : result.values<double>("number"))
                all += " #" + std::to_string(static_cast<int>(number));
        } catch (const std::logic_error&) {
        }
        for (const std::string& text : result.arguments())
            all += " +" + text;
        return all.empty() ? all : all.substr(1);
    }
    struct Row {
        Texts typed;
        std::string meant;
    };
    template <std::size_t count, class Prepare>
    static void compare(const Row (&rows)[count], Prepare prepare) {
        for (const Row& row : rows)
            EXPECT_EQ(meaning(row.typed, prepare), row.meant) << joined(row.typed, " | ");
    }
};

void takeTexts(host::Parser& parser) { (void)parser.addPositional<std::string>("text", "").atLeast(0); }

const char* const logSwitch = "vornoption=vornlogenable=1";

TEST_F(Arguments, areLostOrMovedInNoCase) {
    const Row rows[] = {
        {{""}, "[]"},
        {{"-", "a", "", "-"}, "[-] [a] [] [-]"},
        {{"-D", "-", "-D=-"}, "D=- D=-"},
        {{"--define=", "a.c"}, "'--define=' has no value"},
        {{"-D=", "a.c"}, "'-D=' has no value"},
        {{"--def", "", "a.c"}, "'--def' has no value"},
        {{"--colour="}, "'--colour=' has no value"},
        {{"-D=a=b", "-D==", "-D= x ", "-D=\"q\"", "-D=a,b", "-D=0x1F"},
         "D=a=b D== D= x  D=\"q\" D=a,b D=0x1F"},
        {{"-D", "a=b", "-D", "vornoption=vornlogenable=1"}, "D=a=b D=vornoption=vornlogenable=1"},
        {{"-D"}, "'--define' needs a value"},
        {{"-D", "--"}, "'--define' needs a value; for one that begins with '-', write '--define=--'"},
        {{"-D", "-x"},
         "'--define' needs a value; for one that begins with '-', write '--define=-x'\n"
         "unknown option '-x'"},
        {{"-D=-x", "-D=--", "-D=--define=3"}, "D=-x D=-- D=--define=3"},
        {{"a", "--", "-D", "--", "", "-7"}, "[a] [-D] [--] [] [-7]"},
        {{"--"}, ""},
        {{"a", "--shift", "5", "b", "-s=6"}, "s=6 [a] [b]"},
        {{"@file", "@"}, "[@file] [@]"},  // no response files were asked for
    };
    compare(rows, takeTexts);
}

TEST_F(Arguments, withoutPositionalsAreHandedOverBehindTheTerminatorAlone) {
    const Row rows[] = {
        {{"--", "a", "-v", "", "--"}, "+a +-v + +--"},
        {{"a"}, "unexpected argument 'a'"},
        {{""}, "unexpected argument ''"},
        {{"-"}, "unexpected argument '-'"},
        {{"-5"}, "unknown option '-5'"},
        {{"-D", "", "x"}, "'-D' has no value\nunexpected argument ''\nunexpected argument 'x'"},
    };
    compare(rows, [](host::Parser&) {});
}

TEST_F(Arguments, negativeNumbersAreTakenWhereNumbersAreWanted) {
    const Row behindOptions[] = {
        {{"--shift", "-5"}, "s=-5"},
        {{"--shift=-5"}, "s=-5"},
        {{"-s", "-5", "-5"}, "unknown option '-5'"},
        {{"-s", "-7", "1"},  // an option of this name exists
         "'--shift' needs a value; for one that begins with '-', write '--shift=-7'"},
        {{"-s", "-1e3"}, "'-1e3' is not a whole number, which '--shift' takes"},
        {{"-s", "-x"},
         "'--shift' needs a value; for one that begins with '-', write '--shift=-x'\n"
         "unknown option '-x'"},
        {{"-D", "-5"},
         "'--define' needs a value; for one that begins with '-', write '--define=-5'\n"
         "unknown option '-5'"},
    };
    compare(behindOptions, takeTexts);
    const Row positional[] = {
        {{"-5", "-.5e1", "-7", "9", "3"}, "7=9 #-5 #-5 #3"},
        {{"-5x"}, "unknown option '-5x'"},
        {{"-{", "-~"}, "'-{' names no option\n'-~' names no option"},
        {{"--", "-7"}, "#-7"},
    };
    compare(positional,
            [](host::Parser& parser) { (void)parser.addPositional<double>("number", "").atLeast(0); });
    const Row behindOneThatMayBeLeftOut[] = {{{"-5"}, "[x] #-5"}};
    compare(behindOneThatMayBeLeftOut, [](host::Parser& parser) {
        (void)parser.addPositional<std::string>("text", "").defaultTo("x");
        parser.addPositional<double>("number", "");
    });
    const Row behindATextInFront[] = {
        {{"-5"}, "unknown option '-5'\nmissing argument: TEXT\nmissing argument: NUMBER"},
        {{"a", "-5"}, "[a] #-5"},
        {{"-5", "a"}, "unknown option '-5'\nmissing argument: NUMBER"},
    };
    compare(behindATextInFront, [](host::Parser& parser) {
        parser.addPositional<std::string>("text", "");
        parser.addPositional<double>("number", "");
    });
}

TEST_F(Arguments, implicitValuesStandAlone) {
    const Row rows[] = {
        {{"--colour", "never"}, "c=auto [never]"},
        {{"--col=never", "x"}, "c=never [x]"},
        {{"-c=never", "-c"}, "c=auto"},
        {{"--colour"}, "c=auto"},
        {{"--colour=implicit"}, "c=implicit"},
    };
    compare(rows, takeTexts);
}

TEST_F(Arguments, shortOptionsAreReadLetterByLetterOnRequest) {
    const Row rows[] = {
        {{"-vvq"}, "v2 q"},
        {{"-s4", "-Idir"}, "unknown option '-Idir'"},
        {{"-Ddir", "-vs4", "-vD=x", "-Dx=y"}, "D=dir D=x D=x=y s=4 v2"},
        {{"-vs", "-5"}, "s=-5 v1"},
        {{"-vs-5"}, "s=-5 v1"},
        {{"-vD", "a", "b"}, "D=a v1 [b]"},
        {{"-cv", "-vc", "x"}, "c=auto v2 [x]"},
        {{"-vc=never", "-c=no"}, "c=no v1"},
        {{"-vD="}, "'-D=' has no value"},
        {{"-vq=1"}, "'--quiet' takes no value"},
        {{"-vz"}, "unknown option '-z' in '-vz'"},  // all or nothing
        {{"-v."}, "unknown option '-.' in '-v.'"},
        {{"-vl"}, "unknown option '-l' in '-vl'"},  // the only name that begins with it, but not its name
        {{"--vvq"}, "unknown option '--vvq'"},
        {{"-flag"}, "f"},  // the library finds it
        {{"-vD"}, "'--define' needs a value"},
        {{"-D"}, "'--define' needs a value"},
        {{"-v7", "3"}, "v1 7=3"},
        {{"--", "-vvq"}, "[-vvq]"},
    };
    compare(rows, [](host::Parser& parser) {
        parser.addFlag("long", "");
        takeTexts(parser.joinedShort());
    });
    const Row withoutRequest[] = {
        {{"-vq"}, "unknown option '-vq'; if '-v' and '-q' are meant, write them apart"},
        {{"-vs4"}, "unknown option '-vs4'; if '-v', '-s' and '4' are meant, write them apart"},
        {{"-vvvvvvvvv"}, "unknown option '-vvvvvvvvv'"},
    };
    compare(withoutRequest, takeTexts);
}

TEST_F(Arguments, namesOfOneOptionThatBeginAlikeAreNoAmbiguity) {
    const Row rows[] = {
        {{"--fl"}, "f"},
        {{"--fla"}, "f"},
        {{"--be"}, ""},
        {{"--n-be"}, "'--n-be' is ambiguous: --no-bee, --no-beetle, --nob-bee"},  // one switches on
    };
    compare(rows, [](host::Parser& parser) { parser.addSwitch("bee,beetle", "").synonym("nob-bee"); });
}

TEST_F(Arguments, behindTheFirstPositionalAreUntouchedInARest) {
    const Row rows[] = {
        {{"-v", "run", "-v", "--", "-h", "", "--define"}, "v1 [run] [-v] [--] [-h] [] [--define]"},
        {{"-v", "--", "-v", "--"}, "v1 [-v] [--]"},
        {{"-v"}, "v1"},
        {{"", "-x"}, "[] [-x]"},
        {{"-x", "run"}, "unknown option '-x'"},
        {{"-5"}, "unknown option '-5'"},
    };
    compare(rows, [](host::Parser& parser) { parser.rest("text", "What to run."); });
}

TEST_F(Arguments, thatNobodyKnowsAreDroppedOnRequest) {
    const Row rows[] = {
        {{"-x", "--unknown=1", "a", "-v"}, "v1"},
        {{"-D"}, "'--define' needs a value"},
        {{"--define="}, "'--define=' has no value"},
        {{"--", "a"}, "+a"},
    };
    compare(rows, [](host::Parser& parser) { parser.ignoreUnknown(); });
    const Row onePositional[] = {{{"a", "b", "-5"}, "[a]"}};
    compare(onePositional,
            [](host::Parser& parser) { parser.ignoreUnknown().addPositional<std::string>("text", ""); });
}

TEST_F(Arguments, ofResponseFilesStandInThePlaceOfTheName) {
    const auto prepare = [](host::Parser& parser) { takeTexts(parser.responseFiles()); };
    const struct {
        std::string content;
        Texts front, back;  // around the file's name
        std::string meant;
    } rows[] = {
        {"\xEF\xBB\xBF--define\nx y \r\n\n  # none\n;none\n\t-v\n@file",
         {"a"},
         {"b"},
         "D=x y  v1 [a] [@file] [b]"},
        {"x", {"--define"}, {"b"}, "D=x [b]"},
        {"-D", {}, {"x", "b"}, "D=x [b]"},
        {"5x",
         {"-s"},
         {},
         "FILE:1: '5x' is not a whole number, which '--shift' takes"},  // not where -s stands
        {"", {"-s"}, {}, "'--shift' needs a value"},
        {"", {"-D"}, {"x"}, "D=x"},
        {"--\n-v", {}, {"-v"}, "[-v] [-v]"},
        {"-v", {"--"}, {}, "[@FILE]"},
        {"a", {"-D=@FILE"}, {}, "D=@FILE [a]"},
        {std::string("a\0b", 3), {}, {"-v"}, "cannot read 'FILE': it holds a NUL character and is no text"},
        {"ok\n-x", {}, {}, "FILE:2: unknown option '-x'"},
    };
    for (const auto& row : rows) {
        const MemoryFile file(row.content);
        const auto replaced = [](std::string text, const std::string& from, const std::string& to) {
            for (std::size_t at = text.find(from); at != std::string::npos;
                 at = text.find(from, at + to.size()))
                text.replace(at, from.size(), to);
            return text;
        };
        Texts line;
        for (const std::string& text : row.front)
            line.push_back(replaced(text, "FILE", file.path));
        line.push_back("@" + file.path);
        line.insert(line.end(), row.back.begin(), row.back.end());
        EXPECT_EQ(replaced(meaning(line, prepare), file.path, "FILE"), row.meant) << row.content;
    }
    const Row special[] = {
        {{"@/dev/zero"}, "cannot read '/dev/zero': it holds a NUL character and is no text"},
        {{"@/no/such"}, "cannot read '/no/such': No such file or directory"},
        {{"@/"}, "cannot read '/': Is a directory"},
        {{"@", "-D", "@"}, "D=@ [@]"},
    };
    compare(special, prepare);
    // A pipe is read to its end, and one without an end no further than any sensible list of arguments.
    for (const bool isEndless : {false, true}) {
        std::FILE* pipe = popen(isEndless ? "yes" : "echo -v; echo x", "r");
        const std::string path = "/dev/fd/" + std::to_string(fileno(pipe));
        EXPECT_EQ(meaning({"@" + path}, prepare),
                  isEndless ? "cannot read '" + path + "': it is larger than 64 MiB" : "v1 [x]");
        pclose(pipe);
    }
}

TEST_F(Arguments, switchTheLogOnInTheVeryFirstPlaceAlone) {
    const MemoryFile file(std::string(logSwitch) + "\nb");
    const std::string taken = std::string("[") + logSwitch + "]";
    const struct {
        Texts typed;
        bool isLogged;
        std::string meant;
    } rows[] = {
        {{logSwitch, "a"}, true, "[a]"},
        {{logSwitch, logSwitch}, true, taken},
        {{logSwitch, "@" + file.path}, true, taken + " [b]"},
        {{"a", logSwitch}, false, "[a] " + taken},
        {{"--", logSwitch}, false, taken},
        {{"-v", logSwitch}, false, "v1 " + taken},
        {{"@" + file.path}, false, taken + " [b]"},
    };
    for (const auto& row : rows) {
        testing::internal::CaptureStdout();
        const std::string meant =
            meaning(row.typed, [](host::Parser& parser) { takeTexts(parser.responseFiles()); });
        EXPECT_EQ(!testing::internal::GetCapturedStdout().empty(), row.isLogged) << joined(row.typed);
        EXPECT_EQ(meant, row.meant);
    }
}

TEST(ArgumentVector, mayBeEmptyAndIsRefusedWithAReasonWhenItHoldsNull) {
    host::Parser parser("tool");
    const char* const none[] = {"tool", nullptr};
    EXPECT_TRUE(parser.parse(1, none));
    EXPECT_TRUE(parser.parse(0, nullptr));
    EXPECT_TRUE(parser.parse(-1, nullptr));
    EXPECT_TRUE(parser.parse(-2147483647 - 1, none));
    EXPECT_EQ(thrownBy<std::invalid_argument>([&] { (void)parser.parse(2, none); }),
              "vorn: an element of argv is null");
    EXPECT_EQ(thrownBy<std::invalid_argument>([&] { (void)parser.parse(1, nullptr); }), "vorn: argv is null");
    EXPECT_EQ(said(parser.parse({nullptr})), "unexpected argument ''");
    EXPECT_EQ(thrownBy<std::invalid_argument>([&] { (void)parser.parse(Texts{std::string(1, '\0')}); }),
              "vorn: an argument holds a NUL character, which no command line can");
}

}  // namespace
