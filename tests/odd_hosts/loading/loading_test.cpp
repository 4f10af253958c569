// Hosts that load the library while they run: again and again, and beside its next version. They use what is
// virtual only, since they are not linked with the library.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "support/fixture.h"

namespace {

using namespace vorn_3_1;
using namespace vorn_3_1::public_tests;

struct Library {
    explicit Library(const std::string& minor)
        : name("libvorn.so.3." + minor), handle(dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(handle, nullptr) << dlerror();
        const std::string factory = "_ZN8vorn_3_" + minor + "12createParserEPPNS_7IParserEi";
        create = reinterpret_cast<int (*)(IParser**, int)>(dlsym(handle, factory.c_str()));
    }
    ~Library() {
        dlclose(handle);
        void* const left = dlopen(name.c_str(), RTLD_NOW | RTLD_NOLOAD);
        EXPECT_EQ(left, nullptr) << "the library stays in the process";
    }
    Library(const Library&) = delete;

    const std::string name;
    void* const handle;
    int (*create)(IParser**, int) = nullptr;
};

struct Host : Cli {
    explicit Host(const Library& library) : Cli(unknownIsError, library.create) {
        option("verbose,v", qel_bool);
    }

    /// The position of the switch, or -1.
    int position(const std::string& first) const {
        return parse(first + " -v") == "0" ? occurrences("v").at(0) : -1;
    }
};

// The counter begins anew only if nothing of the library has stayed.
TEST(Loading, mayBeDoneAgainAndAgain) {
    for (int i = 0; i < 50; ++i) {
        const OutputCapture capture;
        const Library library("1");
        const Host host(library);
        EXPECT_EQ(host.position(logSwitch), 1);
        EXPECT_EQ(host.position("-unknown"), -1);
        EXPECT_EQ(standardErrorOf([&] { host.option("v"); }), "v\n");
        EXPECT_NE(capture.str().find("AbbreviationParser: recognizing argument '-v'"), std::string::npos);
    }
}

TEST(Loading, versionsBesideEachOtherShareNothing) {
    OutputCapture capture;
    const Library library("1");
    const Library nextLibrary("2");
    const Host host(library);
    const Host nextHost(nextLibrary);
    EXPECT_EQ(host.position("-v"), 1);
    EXPECT_EQ(host.position(logSwitch), 1);
    EXPECT_EQ(nextHost.position("-v"), 1);
    // The other version's parse has not switched this one's log off.
    capture.str("");
    for (const Host* each : {&nextHost, &host}) {
        const auto refuse = [&] { each->option("verbose,v"); };
        EXPECT_EQ(standardErrorOf(refuse), "verbose\n");
    }
    EXPECT_EQ(capture.str(), "An option with the same name is already registered: verbose\n");
}

}  // namespace
