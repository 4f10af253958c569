// The host's handlers, and the passing on of events to them.
//
// A parser has one such set. The recognisers raise every event on it, never on a host's handler, and it calls the
// handlers one after the other. With the handlers h1 and h2, in this order in memory:
//
//     recogniser                    handler set                           host
//     onOptionParse("level")   ->   keeps a copy of "level"          ->   h1.onOptionParse, h2.onOptionParse
//     onValueParse("level", v) ->   asks until somebody refuses      ->   h1.onValueParse, and h2 if h1 accepts
//     onUknownArgument("-x")   ->   asks all; one false is enough    ->   h1.onUknownArgument, h2.onUknownArgument
#ifndef VORN_PARSER_HANDLER_SET_H
#define VORN_PARSER_HANDLER_SET_H

#include <set>

#include "vorn/parser.h"

namespace vorn_3_1::internal {

class Garbage;

/// Passes every event on in ascending order of the handlers' addresses, with names and arguments that stay
/// valid as long as their copies in `garbage`. Handlers may come and go while an event is under way. What a handler
/// throws passes through.
///
/// A handler may raise events itself: it may parse, or be a parser with handlers of its own. Parsers that
/// handle each other in a ring would do so without an end, so an event that has led back here too often
/// throws std::logic_error.
class HandlerSet final : public EventHandler {
public:
    /// Texts that events hand out are copied into it; it outlives the set.
    explicit HandlerSet(Garbage& keptTexts) : garbage(keptTexts) {}

    /// False, and no change, for a null pointer and for a handler that is there.
    bool add(EventHandler* handler) { return handler != nullptr && handlers.insert(handler).second; }

    /// False when the handler is not there.
    bool remove(EventHandler* handler) { return handlers.erase(handler) > 0; }

    bool empty() const { return handlers.empty(); }

    bool onOptionParse(const char* name) override;
    bool onValueParse(const char* name, const Value& value) override;
    bool onUknownArgument(const char* argument) override;

private:
    template <class Call>
    void callEach(Call call);

    Garbage& garbage;
    std::set<EventHandler*> handlers;  // not owned
    unsigned eventsUnderWay = 0;       // one within the other
};

}  // namespace vorn_3_1::internal

#endif
