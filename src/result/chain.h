// Lists of what was given, in the order in which it came.
//
// A result keeps one chain of occurrences and one of values for each option. Its nodes live in pools; a chain only
// links them:
//
//     first --> node --> node --> node --> (nothing)
//                                  ^
//     last ------------------------+
#ifndef VORN_RESULT_CHAIN_H
#define VORN_RESULT_CHAIN_H

namespace vorn_3_1::internal {

/// A list of nodes that belong to somebody else and have a `next`. Linking never fails, so a store can prepare
/// its nodes first, which may fail, and link them when nothing can go wrong any more. A std::forward_list would ask the
/// heap for each node: twice for an argument, instead of five times for a hundred.
template <class Node>
class Chain {
public:
    /// A place in a chain: in front of a node, or at the end. A cursor at the end stands in front of what is
    /// linked there later, so an iteration goes on when a further parse has added to the list. One that was
    /// never set is at the end for good.
    class Cursor {
    public:
        Cursor() = default;

        bool isAtEnd() const { return link == nullptr || *link == nullptr; }
        Node& operator*() const { return **link; }
        Node* operator->() const { return *link; }
        void advance() { link = &(*link)->next; }

    private:
        friend class Chain;
        explicit Cursor(Node* const* place) : link(place) {}

        // The pointer that leads to the node in front of which the cursor stands: `first`, or a node's `next`.
        Node* const* link = nullptr;
    };

    bool empty() const { return first == nullptr; }
    Cursor begin() const { return Cursor(&first); }

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

    /// The place in this chain that has as many nodes in front of it as `place` has in the other one; the end
    /// where this chain is too short.
    Cursor counterpart(const Chain& other, Cursor place) const {
        Cursor here = begin();
        for (Cursor there = other.begin(); there.link != place.link && !here.isAtEnd(); there.advance()) {
            here.advance();
        }
        return here;
    }

private:
    Node* first = nullptr;
    Node* last = nullptr;
};

}  // namespace vorn_3_1::internal

#endif
