// Hosts that load the library while they run: again and again, and beside its next version. They use what is
// virtual only, since they are not linked with the library.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "vorn/vorn.h"

namespace {

using namespace vorn_3_1;

// Hosts that are built already carry these numbers.
static_assert(unknownIsError == 2 && positionalAfterTerminator == 4);
static_assert(hyphenNotPositional == 8 && positionalRepeat == 16);

struct Library {
    Library(const char* soname, const char* factoryName)
        : name(soname), handle(dlopen(name, RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(handle, nullptr) << dlerror();
        create = reinterpret_cast<int (*)(IParser**, int)>(dlsym(handle, factoryName));
    }
    ~Library() {
        dlclose(handle);
        void* const left = dlopen(name, RTLD_NOW | RTLD_NOLOAD);
        EXPECT_EQ(left, nullptr) << "the library stays in the process";
    }
    Library(const Library&) = delete;

    const char* name;
    void* handle;
    int (*create)(IParser**, int) = nullptr;
};

struct ThisVersion : Library {
    ThisVersion() : Library("libvorn.so.3.1", "_ZN8vorn_3_112createParserEPPNS_7IParserEi") {}
};
struct NextVersion : Library {
    NextVersion() : Library("libvorn.so.3.2", "_ZN8vorn_3_212createParserEPPNS_7IParserEi") {}
};

struct Host {
    explicit Host(const Library& library) {
        EXPECT_EQ(library.create(&parser, unknownIsError), 0);
        EXPECT_EQ(parser->createResult(&result), 0);
        parser->option("verbose,v", "", tamsu2::qel_bool, "");
    }
    ~Host() {
        parser->destroy();
        result->destroy();
    }
    Host(const Host&) = delete;

    /// The position of the switch, or -1.
    int parse(std::string first) const {
        std::string second = "-v";
        char* argv[] = {nullptr, first.data(), second.data()};
        if (parser->parseArgsVector(3, argv, result) != 0 || !result->present("v")) return -1;
        return result->nextPosition();
    }

    IParser* parser = nullptr;
    IParseResult* result = nullptr;
};

struct OutputCapture {
    ~OutputCapture() { std::cout.rdbuf(previous); }
    std::stringbuf text;
    std::streambuf* const previous = std::cout.rdbuf(&text);
};

const char* const logSwitch = "vornoption=vornlogenable=1";

// The counter begins anew only if nothing of the library has stayed.
TEST(Loading, mayBeDoneAgainAndAgain) {
    for (int i = 0; i < 50; ++i) {
        const OutputCapture capture;
        const ThisVersion library;
        const Host host(library);
        EXPECT_EQ(host.parse(logSwitch), 1);
        EXPECT_EQ(host.parse("-unknown"), -1);
        testing::internal::CaptureStderr();
        host.parser->option("v", "", tamsu2::qel_bool, "");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "v\n");
        EXPECT_NE(capture.text.str().find("AbbreviationParser: recognizing argument '-v'"),
                  std::string::npos);
    }
}

TEST(Loading, versionsBesideEachOtherShareNothing) {
    OutputCapture capture;
    const ThisVersion library;
    const NextVersion nextLibrary;
    const Host host(library);
    const Host nextHost(nextLibrary);
    EXPECT_EQ(host.parse("-v"), 1);
    EXPECT_EQ(host.parse(logSwitch), 1);
    EXPECT_EQ(nextHost.parse("-v"), 1);
    // The other version's parse has not switched this one's log off.
    capture.text.str("");
    testing::internal::CaptureStderr();
    for (const Host* each : {&nextHost, &host})
        each->parser->option("verbose,v", "", tamsu2::qel_bool, "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "verbose\nverbose\n");
    EXPECT_EQ(capture.text.str(), "An option with the same name is already registered: verbose\n");
}

}  // namespace
