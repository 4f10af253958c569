// Parsing for a whole process: what a host's main calls. Either it returns a result, or the process ends:
//
//     --completion ...    before anything is parsed        standard output, 0; 2 for a shell that is not known
//     version, help       whatever else is wrong           standard output, 0; 1 if that cannot be written
//     a mistake           the first one, and a hint        standard error, 2
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "completion.h"
#include "help.h"
#include "process_environment.h"
#include "shown_text.h"
#include "table.h"
#include "terminal.h"
#include "vorn/host/parser.h"

namespace vorn_3_1::host {

namespace {

constexpr int wrongUsage = 2;
constexpr int unwritable = 1;

void warn(const detail::Table& table, const std::string& text) {
    const std::string line = detail::joined({detail::escaped(table.path()), ": ", text, "\n"});
    std::fputs(line.c_str(), stderr);
}

/// Ends the process with what its user asked for. Whoever closes a pipe has seen enough.
[[noreturn]] void show(const detail::Table& table, const std::string& text) {
    errno = 0;
    const bool isWritten =
        std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (isWritten || errno == EPIPE) std::exit(0);
    warn(table, detail::joined({"cannot write to standard output: ", std::strerror(errno)}));
    std::exit(unwritable);
}

}  // namespace

Result Parser::parseOrExit(int argc, const char* const* argv) {
    const detail::Table& root = *table;
    std::vector<std::string> arguments = detail::textsOf(argc, argv);
    std::string fault;
    if (const auto output = detail::completionOutput(*table, arguments, fault)) show(root, *output);
    if (!fault.empty()) {
        warn(root, fault);
        std::exit(wrongUsage);
    }
    Outcome outcome = parse(std::move(arguments), detail::ProcessEnvironment());
    if (outcome.asked == Outcome::Asked::version) {
        const detail::Table& asked = *outcome.askedParser->table;
        show(root, detail::joined({asked.path(), " ", asked.versionText, "\n"}));
    }
    if (outcome.asked == Outcome::Asked::help) {
        const HelpPage page =
            detail::helpPage(*outcome.askedParser->table, outcome.all, detail::ProcessEnvironment());
        show(root,
             detail::terminalHelp(page, detail::outputColumns(), detail::outputHasColours(root.colours)));
    }
    for (const std::string& advice : outcome.warnings())
        warn(root, "warning: " + advice);
    if (outcome) return std::move(outcome.found);
    const Parser* command = outcome.result().command();
    (command != nullptr ? *command : *this).fail(outcome.error().text());
}

void Parser::fail(Text text) const {
    warn(table->root(), detail::escaped(text));
    const detail::NameMeaning* help = table->find("help");
    if (help != nullptr && table->records[help->index].isBuiltIn()) {
        std::fputs(detail::joined({"Try '", detail::escaped(table->path()), " --help'.\n"}).c_str(), stderr);
    }
    std::exit(wrongUsage);
}

}  // namespace vorn_3_1::host
