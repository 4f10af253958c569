// A list of pooled nodes in the order in which they were linked.
#ifndef VORN_RESULT_CHAIN_H
#define VORN_RESULT_CHAIN_H

namespace vorn_3_1::internal {

/// Nodes belong to a pool and have a `next`. Linking never fails, so a store can prepare its nodes first and
/// then commit. A Place is the link that leads to a node: one at the end of the chain leads to the next
/// node as soon as there is one.
template <class Node>
class Chain {
public:
    using Place = Node* const*;

    bool empty() const { return first == nullptr; }
    Place begin() const { return &first; }
    static Place after(Place place) { return &(*place)->next; }

    void link(Node& node) {
        (last == nullptr ? first : last->next) = &node;
        last = &node;
    }

    /// Appends all nodes of the other chain, which is not to be used any more.
    void append(const Chain& other) {
        if (other.empty()) return;
        (last == nullptr ? first : last->next) = other.first;
        last = other.last;
    }

    /// The place in another chain that is as far from its start as `place` is in this one, or its end.
    Place samePlace(Place place, const Chain& other) const {
        Place counterpart = other.begin();
        for (Place here = begin(); here != place && *counterpart != nullptr; here = after(here)) {
            counterpart = after(counterpart);
        }
        return counterpart;
    }

private:
    Node* first = nullptr;
    Node* last = nullptr;
};

}  // namespace vorn_3_1::internal

#endif
