// Whether this build checks addresses. Everything takes ten times as long there, and exceptions longer still, so that what
// goes through all cases takes larger steps.
#ifndef VORN_TESTS_SUPPORT_CHECKED_BUILD_H
#define VORN_TESTS_SUPPORT_CHECKED_BUILD_H

namespace vorn_tests {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isChecked = true;
#elif defined(__has_feature)
constexpr bool isChecked = __has_feature(address_sanitizer);
#else
constexpr bool isChecked = false;
#endif

}  // namespace vorn_tests

#endif
