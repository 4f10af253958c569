// A host's whole life with the companion, with every single allocation failing in turn: each call does all it says or
// throws std::bad_alloc, and the same call works afterwards, as if nothing had happened.
#include <functional>
#include <optional>
#include <type_traits>

#include "support/heap.h"
#include "vorn/host.h"

namespace {

namespace host = vorn::host;

const char* const longText = "a text that is longer than what a string holds without an allocation";
const char* const settings = "--define=from-the-settings-of-rather-great-length\n--no-quiet\n--bogus\n";

/// The steps of a life; each returns what it has come to.
class Life {
public:
    /// The outcomes of an undisturbed life are written down; those of later ones have to be the same.
    Life(std::vector<std::string>& expected, bool whileDeclaring)
        : outcomes(expected), failsInDeclarations(whileDeclaring) {}

    void run() {
        step([&] { return parser = host::Parser("tool", longText), ""; });
        step([&] {
            return parser.version("1.0").joinedShort().responseFiles().settings(settings, longText), "";
        });
        declare(parser);
        step([&] { return command = &parser.command("command-of-rather-great-length,cmd", longText), ""; });
        declare(*command);
        step([&] { return (void)command->addPositional<int>("number", longText).optional(), ""; });
        step([&] { return (void)command->addPositional<std::string>("text", longText).atLeast(1), ""; });
        step([&] { return parser.addSwitch("everywhere,all-over-the-place,w", longText).global(), ""; });
        step([&] { return parser.verify(), ""; });
        isDeclaring = false;
        for (const std::vector<std::string>& line : lines) {
            step([&] { return meaningOf(line); });
            if (!failsInDeclarations && hasFailedBefore) return;
            if (failsInDeclarations && &line == &lines[1]) break;  // enough to miss what is lost
        }
        isDeclaring = true;
        const auto late = make([&] { return parser.addFlag("late", longText); });
        step([&] { return late.synonym("later-than-all-others"), ""; });
        step([&] { return meaningOf({"--later-th", "--qui", "cmd", "-w", "x"}); });
        step(
            [&] { return refusalOf([&] { parser.add<int>("fresh-name-of-great-length,late", longText); }); });
        step([&] { return meaningOf({"--fresh-name-of-great-length", "cmd", "x"}); });
    }

private:
    static const std::vector<std::vector<std::string>> lines;

    template <class Maker>
    std::invoke_result_t<Maker> make(Maker maker) {
        std::optional<std::invoke_result_t<Maker>> made;
        step([&] { return made.emplace(maker()), ""; });
        return *made;
    }

    /// Each operation in a step of its own; what it has lost would be missing from the parses.
    void declare(host::Parser& to) {
        step([&] {
            return texts = to.add<std::string>("define,D,macro-definition", longText).list(',').key(), "";
        });
        const auto size = make([&] { return to.add<int>("size-of-everything,s", longText); });
        step([&] { return size.range(1, 1000), ""; });
        step([&] { return size.implicit(8), ""; });
        step([&] { return size.environment("AN_ENVIRONMENT_VARIABLE_FOR_THE_SIZE"), ""; });
        step([&] { return size.synonym("extent-of-everything"), ""; });
        step([&] { return (void)size.defaultTo(5), ""; });
        step([&] { return size.check([](int n) { return std::string(n == 13 ? longText : ""); }), ""; });
        const auto mode = make([&] { return to.add<std::string>("mode", longText); });
        step([&] { return mode.allow("fast", "safe", longText), ""; });
        step([&] { return mode.metavar(longText).deprecated(longText), ""; });
        const auto quiet = make([&] { return to.addSwitch("quiet", longText); });
        const auto loud = make([&] { return to.addCount("loud,l", longText); });
        step([&] { return quiet.synonym("silent-as-the-grave"), ""; });
        step([&] { return loud.needs(size.key()), ""; });
        step([&] { return to.exclusive({quiet.key(), loud.key()}), ""; });
    }

    std::string meaningOf(const std::vector<std::string>& line) {
        const std::vector<host::Variable> environment = {{"AN_ENVIRONMENT_VARIABLE_FOR_THE_SIZE", "77"}};
        const host::Outcome outcome = parser.parse(line, environment);
        std::string all;
        for (const host::Error& error : outcome.errors())
            all += error.text() + " (" + error.libraryText + ")\n";
        for (const std::string& warning : outcome.warnings())
            all += warning + "\n";
        const host::Result& result = outcome.result();
        const auto add = [&all](const char* name, const auto& givens) {
            for (const auto& given : givens)
                all += std::string(name) + " from " + given.origin.text() + "\n";
        };
        add("size", result.given<int>("size-of-everything"));
        add("quiet", result.given<bool>("silent-as-the-grave"));
        add("loud", result.given<int>("loud"));
        for (const std::string& text : result.values<std::string>("define"))
            all += "define " + text + "\n";
        if (result.command() != nullptr)
            all += std::to_string(result.values<std::string>("text").size()) + " texts\n";
        return all + parser.effective(result);
    }

    static std::string refusalOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const host::RegistrationError& error) {
            return error.what();
        }
        return "accepted";
    }

    /// A step that fails is done again once there is memory.
    template <class Attempt>
    void step(Attempt attempt) {
        std::string outcome;
        hasFailedBefore = memory.failures > 0;
        try {
            memory.isArmed = isDeclaring == failsInDeclarations;
            outcome = attempt();
        } catch (const std::bad_alloc&) {
            memory.isArmed = false;
            EXPECT_GT(memory.failures, 0u);
            outcome = attempt();
        }
        memory.isArmed = false;
        if (done == outcomes.size()) outcomes.push_back(outcome);
        EXPECT_EQ(outcome, outcomes[done]) << "step " << done;
        ++done;
    }

    std::vector<std::string>& outcomes;
    bool failsInDeclarations;
    bool isDeclaring = true;
    bool hasFailedBefore = false;  // the step before this one, or an earlier one
    std::size_t done = 0;
    host::Parser parser{"none"};
    host::Parser* command = nullptr;
    host::Key<std::vector<std::string>> texts;
};

const std::vector<std::vector<std::string>> Life::lines = {
    {"-lls5", "--macro-def=a,an-item-of-rather-great-length", "--all-over", "cmd", "12", longText, "-w",
     "--quiet"},
    {"--extent", "--no-silent", "--mode=fa", "command", "-ll", "--define", "x", "--", "-5", ""},
    {"--s", "--o", "--mode=nothing-that-is-allowed", "-l", "--quiet", "--size=13", "--define=a,,b", "comand"},
    {"@/no/such/file-of-rather-great-length", "--macro-definitoin=x", "c", "--lo", "--help"},
    {"--", "cmd", "--size-of-everything=1001", "--quiet=1", "x", "y"},
    {"vornoption=vornlogenable=1", "cmd", "x"},
};

TEST(CompanionAllocationFailure, inADeclarationIsThrownAndPasses) {
    failEachAllocation([](std::vector<std::string>& outcomes) { Life(outcomes, true).run(); });
}

TEST(CompanionAllocationFailure, inAParseOrQueryIsThrownAndPasses) {
    failEachAllocation([](std::vector<std::string>& outcomes) { Life(outcomes, false).run(); });
}

}  // namespace
