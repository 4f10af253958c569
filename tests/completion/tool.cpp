// A tool whose completion is tried in real shells. It prints its arguments, one a line.
#include <cstdio>

#include "vorn/host.h"
#include "vorn/host/path.h"

namespace host = vorn::host;

namespace {

enum class Format { text, json, jsonl };

void declareOptions(host::Parser& parser) {
    parser.add<std::filesystem::path>("output-dir,o", "Where they go.").completes(host::Completion::folders);
    parser.add<std::filesystem::path>("input", "What is read.");
    (void)parser.add<std::filesystem::path>("parts", "Several files.").list(',');
    parser.add<Format>("format", "What to write.")
        .named({{"text", Format::text}, {"json", Format::json}, {"jsonl", Format::jsonl}});
    (void)parser.add<std::string>("fields", "What to show.").allow("name", "size", "date").list(',');
    parser.add<std::string>("colour,color", "When to use colours.")
        .allow("never", "always")
        .implicit("always");
    parser.add<std::string>("user", "Who.").completes([](std::string_view) {
        return std::vector<std::string>{"anna", "Bo Li", "o'neil", "$cash", "a:b"};
    });
    parser.addSwitch("verbose", "Say more.");
    parser.addFlag("copy-dir", "Copy.");
    parser.addFlag("create-data", "Create.");
    parser.addFlag("secret", "For us.").hidden();
    parser.addFlag("old-way", "As before.").deprecated("nothing");
    parser.addPositional<std::string>("fruit", "What to eat.").allow("apple", "pear", "dragon fruit");
    (void)parser.addPositional<std::filesystem::path>("file", "Where.").atLeast(0);
}

void declareCommands(host::Parser& parser) {
    parser.add<std::string>("store", "Where the notes are.").allow("near", "far").global();
    parser.command("add", "Adds a note.").addFlag("urgent", "Soon.");
    host::Parser& remote = parser.command("remote-store", "Works elsewhere.");
    remote.command("push", "Sends.").addFlag("force", "Do it.");
    remote.command("pull", "Gets.").add<int>("depth", "How much.");
    parser.command("remove,rm", "Removes notes.")
        .addPositional<std::string>("id", "Which.")
        .allow("one", "two");
}

}  // namespace

int main(int argc, char** argv) {
#ifdef VORN_TEST_COMMANDS
    host::Parser parser("ctool", "Has commands.");
    declareCommands(parser);
    (void)declareOptions;
#else
    host::Parser parser("ptool", "Has options.");
    declareOptions(parser);
    (void)declareCommands;
#endif
    const host::Result result = parser.parseOrExit(argc, argv);
    return 0;
}
