// How one event reaches all handlers, although any of them may add or remove handlers, parse, or raise events.
#include "parser/handler_set.h"

#include <stdexcept>

#include "text/garbage.h"

namespace vorn_3_1::internal {

namespace {

// Far more than a host that parses from inside its handlers needs (one for every file that includes another), and
// little enough for the stack of any thread.
constexpr unsigned mostEventsUnderWay = 100;

/// Counts one event as long as it is under way.
class UnderWay {
public:
    explicit UnderWay(unsigned& events) : count(events) {
        if (count == mostEventsUnderWay) throw std::logic_error("an event leads to itself");
        ++count;
    }
    UnderWay(const UnderWay&) = delete;
    ~UnderWay() { --count; }

private:
    unsigned& count;
};

}  // namespace

// The three events differ in what the handlers' answers mean. onOptionParse: nothing. onValueParse: the first false
// refuses the value, and no further handler is asked. onUknownArgument: all are asked, and one false is enough.
bool HandlerSet::onOptionParse(const char* name) {
    const char* kept = garbage.init(name);
    callEach([kept](EventHandler& handler) {
        handler.onOptionParse(kept);
        return true;
    });
    return true;
}

bool HandlerSet::onValueParse(const char* name, const Value& value) {
    const char* kept = garbage.init(name);
    bool isAccepted = true;
    callEach([&](EventHandler& handler) { return isAccepted = handler.onValueParse(kept, value); });
    return isAccepted;
}

bool HandlerSet::onUknownArgument(const char* argument) {
    const char* kept = garbage.init(argument);
    bool isUnknown = true;
    callEach([&](EventHandler& handler) {
        if (!handler.onUknownArgument(kept)) isUnknown = false;
        return true;
    });
    return isUnknown;
}

// Calls one handler after the other until a call gives false. The next handler is looked up by address each time,
// since the last one may have added or removed any, itself included.
template <class Call>
void HandlerSet::callEach(Call call) {
    const UnderWay thisEvent(eventsUnderWay);
    for (auto next = handlers.begin(); next != handlers.end();) {
        EventHandler* const handler = *next;
        if (!call(*handler)) return;
        next = handlers.upper_bound(handler);
    }
}

}  // namespace vorn_3_1::internal
