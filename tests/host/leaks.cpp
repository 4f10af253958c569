// Asked by the leak checker, where there is one. A child ends with what the tests of its parent still hold, and to look
// through that takes longer than what the child does.
#include <unistd.h>

extern "C" int __lsan_is_turned_off();

namespace {
const pid_t tests = getpid();
}

extern "C" int __lsan_is_turned_off() { return getpid() != tests ? 1 : 0; }
