// The host's handlers, and the fan-out of events to them.
#ifndef VORN_PARSER_HANDLER_SET_H
#define VORN_PARSER_HANDLER_SET_H

#include <vector>

#include "vorn/parser.h"

namespace vorn_3_1::internal {

class Garbage;

/// Passes every event on in ascending order of the handlers' addresses, with names and arguments that stay
/// valid as long as the keeper. Handlers may come and go while an event is being delivered. What a handler
/// throws passes through.
class HandlerSet final : public EventHandler {
public:
    explicit HandlerSet(Garbage& textKeeper) : garbage(textKeeper) {}

    bool add(EventHandler* handler);
    bool remove(EventHandler* handler);
    bool empty() const { return handlers.empty(); }

    bool onOptionParse(const char* name) override;
    bool onValueParse(const char* name, const Value& value) override;
    bool onUknownArgument(const char* argument) override;

private:
    template <class Deliver>
    void visit(Deliver deliver) const;

    Garbage& garbage;
    std::vector<EventHandler*> handlers;  // in order of address; not owned
};

}  // namespace vorn_3_1::internal

#endif
