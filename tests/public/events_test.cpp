// What handlers hear, in which order, what their answers do, and what they may do meanwhile.
#include <stdexcept>

#include "support/fixture.h"

namespace vorn_3_1::public_tests {

struct Events : testing::Test {
    Events() { cli.option("name"); }

    const Cli cli{unknownIsError};
    std::string events;
    Recorder handlers[3] = {Recorder(events, '1'), Recorder(events, '2'), Recorder(events, '3')};
};

TEST_F(Events, handlersHearEachEventOnceByAddress) {
    for (int i : {2, 0, 1})
        EXPECT_TRUE(cli.parser->addHandler(&handlers[i]));
    EXPECT_FALSE(cli.parser->addHandler(&handlers[0]));
    EXPECT_FALSE(cli.parser->addHandler(nullptr));
    EXPECT_EQ(cli.parse("-n=x -zz"), "2 Unknown option: -zz");
    EXPECT_EQ(events, "1name 2name 3name 1name=x 2name=x 3name=x 1?-zz 2?-zz 3?-zz ");
    EXPECT_TRUE(cli.parser->removeHandler(&handlers[1]));
    EXPECT_FALSE(cli.parser->removeHandler(&handlers[1]));
    EXPECT_FALSE(cli.parser->removeHandler(nullptr));
    events.clear();
    handlers[2].atUnknown = [] { return false; };  // one that has dealt with it is enough, and all are asked
    handlers[0].atUnknown = handlers[2].atUnknown;
    EXPECT_EQ(cli.parse("-zz -n=y"), "0");
    EXPECT_EQ(events, "1?-zz 3?-zz 1name 3name 1name=y 3name=y ");
}

TEST_F(Events, mayBeRaisedByTheHostWhichThenGetsWhatAHandlerThrows) {
    IParser& parser = *cli.parser;
    const Value value{"v", 0, 7, {}};
    EXPECT_TRUE(parser.onOptionParse("n") && parser.onValueParse("n", value) && parser.onUknownArgument("u"));
    for (int i : {0, 1})
        parser.addHandler(&handlers[i]);
    EXPECT_TRUE(parser.onOptionParse("n") && parser.onValueParse("n", value) &&
                parser.onUknownArgument(nullptr));
    EXPECT_EQ(events, "1n 2n 1n=v 2n=v 1? 2? ");
    handlers[0].atValue = [](const Value&) -> bool { throw std::runtime_error("from a handler"); };
    EXPECT_THROW(parser.onValueParse("n", value), std::runtime_error);
}

// A parser that handles another one's events must not turn a failure into an answer.
TEST_F(Events, aHandlersExceptionPassesThroughTheParserBetween) {
    const Cli outer(unknownIsError | positionalAfterTerminator | hyphenNotPositional);
    outer.option("name")->positional();
    outer.parser->addHandler(cli.parser);
    cli.parser->addHandler(&handlers[0]);
    EXPECT_EQ(outer.parse("-n=x -- y"), "0");
    EXPECT_EQ(events, "1name 1name=x 1name 1name=y ");

    const auto failure = [](auto&&...) -> bool { throw std::runtime_error("from a handler"); };
    handlers[0].atUnknown = failure;
    EXPECT_EQ(outer.parse("-zz"), "4 Unidentified problem detected.");
    handlers[0].atValue = failure;
    EXPECT_EQ(outer.parse("-n=x"), "4 Unidentified problem detected.");
    EXPECT_EQ(outer.parse("-- y"), "3 ");
    handlers[0].atValue = nullptr;
    handlers[0].atOption = failure;
    EXPECT_EQ(outer.parse("-n=x"), "4 Unidentified problem detected.");
}

TEST_F(Events, parsersThatHandleEachOtherEndTheEvent) {
    EXPECT_FALSE(cli.parser->addHandler(cli.parser));
    EXPECT_EQ(cli.parse("-n=x"), "0");
    const Cli others[2];
    cli.parser->addHandler(&handlers[0]);
    cli.parser->addHandler(others[0].parser);
    others[0].parser->addHandler(others[1].parser);
    for (const Cli* last : {&others[0], &others[1]}) {
        EXPECT_TRUE(last->parser->addHandler(cli.parser));
        EXPECT_EQ(cli.parse("-n=x"), "4 Unidentified problem detected.");
        EXPECT_EQ(cli.parse("-zz"), "4 Unidentified problem detected.");
        EXPECT_THROW(cli.parser->onValueParse("n", Value{"v", 0, 7, {}}), std::exception);
        EXPECT_TRUE(last->parser->removeHandler(cli.parser));  // a chain is no ring
        EXPECT_EQ(cli.parse("-n=x"), "0");
    }
}

TEST_F(Events, aHandlerMayParse) {
    cli.parser->addHandler(&handlers[0]);
    int files = 0;
    handlers[0].atUnknown = [&] { return cli.parse(++files < 50 ? "-file" : "-n=x") != "0"; };
    EXPECT_EQ(cli.parse("-file -n=y"), "0");
    EXPECT_EQ(cli.values("name"), "[x][y]");
}

TEST_F(Events, aVetoEndsTheEventAndTheParse) {
    for (Recorder& handler : handlers)
        cli.parser->addHandler(&handler);
    handlers[1].atValue = [](const Value& value) { return value.as<const char*>() != std::string("bad"); };
    EXPECT_EQ(cli.parse("--n=ok,bad,x -n=y"),
              "1 Value 'ok,bad,x' is not valid for option 'name' in argument '--n=ok,bad,x'");
    EXPECT_EQ(events, "1name 2name 3name 1name=ok 2name=ok 3name=ok 1name=bad 2name=bad ");
    EXPECT_FALSE(cli.result->present("name"));
    cli.option("whole")->tokenize('\0');
    EXPECT_EQ(cli.parse("-w bad"), "1 Value 'bad' is not valid for option 'whole' in argument '-w'");
}

TEST_F(Events, valuesShowTheTypedTextAndTheExpandedValue) {
    cli.option("mode")->allowValue("fast");
    cli.parser->addHandler(&handlers[0]);
    std::vector<Value> seen;
    handlers[0].atValue = [&](const Value& value) { return seen.push_back(value), true; };
    ASSERT_EQ(cli.parse("--mode=fa,f -n=fa"), "0");
    EXPECT_EQ(events, "1mode 1mode=fa 1mode=f 1name 1name=fa ");
    EXPECT_EQ(cli.values("mode"), "[fast][fast]");
    EXPECT_EQ(seen[0].text, seen[2].text);  // equal texts are one, and stay as long as the parser
    EXPECT_EQ(seen[0].status, 0);
    EXPECT_TRUE(seen[0].value == variant_t("fast"));
    EXPECT_EQ(seen[0].position, cli.occurrences("mode").at(0) + 1);
    EXPECT_EQ(seen[1].position, seen[0].position + 1);
    EXPECT_EQ(seen[2].position, seen[0].position + 3);
    EXPECT_EQ(cli.result->get("mode").position, seen[0].position);
    cli.option("level", qel_int);
    ASSERT_EQ(cli.parse("--level=5x"), "0");
    EXPECT_TRUE(seen[3].value == variant_t(5) && cli.result->get("level").value == variant_t(5));
}

TEST_F(Events, handlersMayLeaveAndJoinDuringAnEvent) {
    cli.parser->addHandler(&handlers[0]);
    cli.parser->addHandler(&handlers[2]);
    handlers[0].atOption = [&] {
        EXPECT_TRUE(cli.parser->removeHandler(&handlers[0]));
        EXPECT_TRUE(cli.parser->removeHandler(&handlers[2]));  // was about to hear this event
        EXPECT_TRUE(cli.parser->addHandler(&handlers[1]));     // may hear it or not
    };
    EXPECT_EQ(cli.parse("-n=x"), "0");
    EXPECT_EQ(events.substr(0, 6), "1name ");
    EXPECT_EQ(events.substr(events.size() - 8), "2name=x ");
    EXPECT_EQ(events.find('3'), events.npos);
}

TEST_F(Events, anOptionRegisteredMeanwhileIsKnownAtOnce) {
    IOption* rest = nullptr;
    cli.parser->addHandler(&handlers[0]);
    handlers[0].atOption = [&] {
        handlers[0].atOption = nullptr;
        for (int i = 0; i < 100; ++i)
            cli.option(("late-" + std::to_string(i)).c_str());
        rest = cli.option("rest");
    };
    handlers[0].atUnknown = [&] { return rest->positional()->defaultValue("d") == nullptr; };
    EXPECT_EQ(cli.parse("-n=a,b --late-77=c bare bare"), "0");
    EXPECT_EQ(cli.stored("name late-77 rest"), "name[a][b] late-77[c] rest[bare] ");
    const Cli other;
    EXPECT_EQ(cli.parseInto(other.result, {"-n=x"}), "0");
    EXPECT_EQ(other.stored("name rest"), "name[x] rest[d] ");
}

TEST_F(Events, changesToTheOptionBeingParsedTakeEffectAfterIt) {
    for (const bool repeat : {false, true}) {
        const Cli changed(repeat ? positionalRepeat : 0);
        IOption* const option = changed.option("mode")->positional();
        changed.parser->addHandler(&handlers[0]);
        handlers[0].atOption = [&] {
            handlers[0].atOption = nullptr;
            option->synonym("way")->allowValue("fast")->tokenize(';');
        };
        EXPECT_EQ(changed.parse("x,y --way=f;fast z"),
                  repeat ? "0"
                         : "2 Value validation problem in argument 'z': Option 'mode' does not allow value "
                           "'z'. Possible values follows: 'fast'");
        // The synonym has what came after it; a repeat is all of one piece.
        EXPECT_EQ(changed.stored("mode way"),
                  repeat ? "mode[x][y][--way=f;fast][z] " : "mode[x][y][fast][fast] way[fast][fast] ");
    }
}

}  // namespace vorn_3_1::public_tests
