#include "parser/handler_set.h"

#include <algorithm>
#include <functional>

#include "text/garbage.h"

namespace vorn_3_1::internal {

namespace {
constexpr std::less<EventHandler*> byAddress;
}

bool HandlerSet::add(EventHandler* handler) {
    if (handler == nullptr) return false;
    const auto place = std::lower_bound(handlers.begin(), handlers.end(), handler, byAddress);
    if (place != handlers.end() && *place == handler) return false;
    handlers.insert(place, handler);
    return true;
}

bool HandlerSet::remove(EventHandler* handler) {
    const auto place = std::lower_bound(handlers.begin(), handlers.end(), handler, byAddress);
    if (place == handlers.end() || *place != handler) return false;
    handlers.erase(place);
    return true;
}

bool HandlerSet::onOptionParse(const char* name) {
    const char* kept = garbage.init(name);
    visit([kept](EventHandler& handler) {
        handler.onOptionParse(kept);
        return true;
    });
    return true;
}

bool HandlerSet::onValueParse(const char* name, const Value& value) {
    const char* kept = garbage.init(name);
    bool accepted = true;
    visit([&](EventHandler& handler) { return accepted = handler.onValueParse(kept, value); });
    return accepted;
}

bool HandlerSet::onUknownArgument(const char* argument) {
    const char* kept = garbage.init(argument);
    bool unhandled = true;
    visit([&](EventHandler& handler) {
        if (!handler.onUknownArgument(kept)) unhandled = false;
        return true;
    });
    return unhandled;
}

// Delivers until a handler's answer is false. The next handler is looked up by address each time, since the
// last one may have added or removed any.
template <class Deliver>
void HandlerSet::visit(Deliver deliver) const {
    for (auto place = handlers.begin(); place != handlers.end();) {
        EventHandler* handler = *place;
        if (!deliver(*handler)) return;
        place = std::upper_bound(handlers.begin(), handlers.end(), handler, byAddress);
    }
}

}  // namespace vorn_3_1::internal
