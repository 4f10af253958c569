// The typed value that crosses the interface: default values, allowed values and parsed values.
//
//     tamsu2::variant_t level(5);               // kind 6, int
//     level = "fast";                           // kind 12, an owned copy of the text
//     if (level.asString() != nullptr) ...      // null on every kind that is no narrow text
#ifndef TAMSU2_VARIANT_H
#define TAMSU2_VARIANT_H

#include <stddef.h>

#include "vorn/export.h"

namespace tamsu2 {

/// What a variant_t holds, and what an option's values are. Every value from 0 to 17 may be cast to
/// it; the unnamed ones belong to the suite's other libraries and carry no meaning here.
enum qel_variant_type_t : int {
    qel_bool = 0,
    qel_int = 6,
    qel_uint = 7,
    qel_int64 = 8,
    qel_uint64 = 9,
    qel_double = 11,
    qel_string = 12,       ///< narrow text, an owned copy
    qel_wstring = 13,      ///< wide text, an owned copy
    qel_string_ref = 14,   ///< narrow text, neither copied nor released
    qel_wstring_ref = 15,  ///< wide text, neither copied nor released
    qel_block = 16,        ///< bytes with their count, an owned copy
    qel_empty = 17         ///< no value
};

/// A value of one of the kinds above. Copies own their texts and blocks.
///
/// The layout is contract: 8 value bytes, then the 32-bit kind; 12 bytes in all on i386. Integers
/// fill all 8 bytes: `int` is sign-extended, `bool` and `unsigned int` are zero-extended. Of a text or
/// a block, only the pointer counts, which fills the first bytes.
///
/// Copying and building kinds 12, 13 and 16 obtain memory and may throw what the allocator throws
/// (std::bad_alloc by default); a failed assignment leaves the target as it was. Nothing else throws.
class VORN_API variant_t {
public:
    /// Gives the memory of every variant's owned text or block. A process may install another one by
    /// constructing a derived object in the place of m_mem, before the first variant owns memory; the
    /// derived class adds no data. The slot order is contract, and a destructor would take slots.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
    class VORN_API allocator_t {
    public:
        /// Gives a block back; never null.
        virtual void release(void* block);

        /// A block of that size, or std::bad_alloc.
        virtual void* obtain(size_t bytes);
    };
#pragma GCC diagnostic pop
    static allocator_t m_mem;

    /// Empty: kind 17.
    variant_t() noexcept = default;

    // Numbers.
    variant_t(bool value) : content{value}, tag(qel_bool) {}
    variant_t(int value) : content{value}, tag(qel_int) {}
    variant_t(unsigned int value) : content{value}, tag(qel_uint) {}
    variant_t(long value);           ///< The signed kind of the same width.
    variant_t(unsigned long value);  ///< The unsigned kind of the same width.
    variant_t(long long value) : content{value}, tag(qel_int64) {}
    variant_t(unsigned long long value) : content{static_cast<long long>(value)}, tag(qel_uint64) {}
    variant_t(double value) : tag(qel_double) { content.number = value; }

    // Texts and bytes. They are copied, and a null pointer stays null.
    variant_t(const char* text);
    variant_t(const wchar_t* text);
    variant_t(const void* bytes, unsigned int count);

    /// Kinds 14 and 15: the variant only points to the text, which the caller keeps alive.
    static variant_t borrowed(const char* text);
    static variant_t borrowed(const wchar_t* text);

    /// An owned text or block is copied. Assigning a variant to itself does nothing.
    variant_t(const variant_t& other);
    variant_t& operator=(const variant_t& other);

    /// Takes the value over and leaves `other` empty.
    variant_t(variant_t&& other) noexcept : content(other.content), tag(other.tag) { other.tag = qel_empty; }
    variant_t& operator=(variant_t&& other) noexcept {
        if (this != &other) {
            release();
            content = other.content;
            tag = other.tag;
            other.tag = qel_empty;
        }
        return *this;
    }

    ~variant_t() {
        if (ownsMemory()) release();
    }

    qel_variant_type_t kind() const noexcept { return static_cast<qel_variant_type_t>(tag); }

    // Numbers convert by value between the numeric kinds: fractions are dropped, what is out of range
    // saturates, not-a-number is 0. Kinds that hold no number read as 0 or false.
    bool asBool() const;
    int asInt() const;
    unsigned int asUInt() const;
    long long asInt64() const;
    unsigned long long asUInt64() const;
    double asDouble() const;

    // Null on every kind that holds no such thing. Valid until the variant changes or is destroyed;
    // a borrowed text as long as its owner keeps it.
    const char* asString() const;
    const wchar_t* asWString() const;
    const void* asBlock() const;

    /// In bytes; 0 when there is no block.
    unsigned int blockSize() const;

    /// Equality by kinds. Integers compare by their 8 bytes whatever their kinds, so an `int` -1
    /// equals the largest unsigned 64-bit value. An integer meets a double as an unsigned 64-bit
    /// number, so a negative integer equals no double. Texts compare by content, owned or borrowed
    /// alike, but never narrow with wide. Two null texts are equal, and so are two empty variants.
    friend VORN_API bool operator==(const variant_t& left, const variant_t& right);
    friend VORN_API bool operator!=(const variant_t& left, const variant_t& right);

private:
    union content_t {
        long long integer;    // kinds 0 to 9
        double number;        // kinds 10 and 11
        const void* pointer;  // kinds 12 to 16
    };

    bool ownsMemory() const noexcept {
        return ((1 << qel_string | 1 << qel_wstring | 1 << qel_block) >> tag & 1) != 0;
    }

    template <class Target>
    Target toInteger() const;

    // Gives back what the value owns, if anything.
    void release() noexcept;

    content_t content = {0};
    int tag = qel_empty;  // the kind
};

static_assert(sizeof(int) == 4 && sizeof(long long) == 8 && sizeof(double) == 8,
              "8 value bytes and a 32-bit kind");

}  // namespace tamsu2

#endif
