// The typed value: kinds, copies, equality across kinds, and numbers read as other kinds.
#include "tamsu2/variant.h"

#include <cmath>
#include <cstddef>
#include <cstring>
#include <new>

#include "support/fixture.h"

namespace vorn_3_1::public_tests {

#if defined(__i386__)
static_assert(sizeof(variant_t) == 12 && sizeof(Value) == 24 && offsetof(Value, value) == 12);
#endif
static_assert(offsetof(Value, text) == 0 && offsetof(Value, status) == sizeof(void*));
static_assert(offsetof(Value, position) == sizeof(void*) + 4);

TEST(Variant, layoutIsEightValueBytesThenTheKind) {
    const struct {
        variant_t value;
        std::uint32_t words[3];
    } cases[] = {{true, {1, 0, 0}},
                 {-2, {0xFFFFFFFE, 0xFFFFFFFF, 6}},
                 {0xFFFFFFFEU, {0xFFFFFFFE, 0, 7}},
                 {-2LL, {0xFFFFFFFE, 0xFFFFFFFF, 8}},
                 {1ULL << 32, {0, 1, 9}},
                 {1.0, {0, 0x3FF00000, 11}}};
    for (const auto& [value, words] : cases)
        EXPECT_EQ(std::memcmp(&value, words, 12), 0) << words[2];
    EXPECT_EQ(variant_t(1L).kind(), sizeof(long) == 4 ? qel_int : qel_int64);
    for (const variant_t& promoted : {variant_t('c'), variant_t(short{1}), variant_t(qel_string)})
        EXPECT_EQ(promoted.kind(), qel_int);
    EXPECT_EQ(variant_t(1.0F).kind(), qel_double);
}

// Of a floating kind that no constructor makes.
static variant_t otherFloating(double number) {
    variant_t value(number);
    const std::int32_t kind = 10;
    std::memcpy(reinterpret_cast<char*>(&value) + 8, &kind, sizeof kind);
    return value;
}

TEST(Variant, equalityGoesByTheTwoKinds) {
    const char* const null = nullptr;
    const std::vector<std::vector<variant_t>> classes = {
        {true, 1, 1U, 1LL, 1ULL, 1.0, otherFloating(1.0)},
        {false, 0, 0U, 0LL, 0ULL, 0.0, -0.0},
        {-1, -1LL, ULLONG_MAX},
        {UINT_MAX, 4294967295LL, 4294967295.0},  // zero-extended, so no -1
        {-1.0, otherFloating(-1.0)},             // no integer is
        {0.1},
        {"a", variant_t::borrowed("a")},
        {"ab"},
        {L"a", variant_t::borrowed(L"a")},
        {null, null},
        {static_cast<const wchar_t*>(nullptr), variant_t::borrowed(static_cast<const wchar_t*>(nullptr))},
        {variant_t(nullptr, 3), variant_t("", 0)},
        {variant_t("ab\0d", 4), variant_t("ab\0d", 4)},
        {variant_t("ab\0e", 4)},
        {variant_t(), variant_t()},
    };
    for (const auto& lefts : classes) {
        for (const auto& rights : classes) {
            for (std::size_t i = 0; i < lefts.size() * rights.size(); ++i) {
                const variant_t &left = lefts[i % lefts.size()], &right = rights[i / lefts.size()];
                EXPECT_EQ(left == right, &lefts == &rights) << left.kind() << " with " << right.kind();
                EXPECT_EQ(left != right, &lefts != &rights) << left.kind() << " with " << right.kind();
            }
        }
    }
    EXPECT_FALSE(variant_t(std::nan("")) == variant_t(std::nan("")));
    EXPECT_TRUE(variant_t(ULLONG_MAX) == variant_t(18446744073709551616.0));  // integers round to double
    EXPECT_TRUE(variant_t((1LL << 53) + 1) == variant_t(9007199254740992.0));
}

TEST(Variant, numbersReadAsOtherKindsSaturate) {
    const struct {
        variant_t value;
        int asInt;
        unsigned int asUInt;
        long long asInt64;
        unsigned long long asUInt64;
        double asDouble;
    } cases[] = {
        {-7, -7, 0, -7, 0, -7.0},
        {UINT_MAX, INT_MAX, UINT_MAX, UINT_MAX, UINT_MAX, 4294967295.0},
        {LLONG_MIN, INT_MIN, 0, LLONG_MIN, 0, -9223372036854775808.0},
        {ULLONG_MAX, INT_MAX, UINT_MAX, LLONG_MAX, ULLONG_MAX, 18446744073709551616.0},
        {3UL, 3, 3, 3, 3, 3.0},
        {-2.9, -2, 0, -2, 0, -2.9},
        {2147483646.0, 2147483646, 2147483646, 2147483646, 2147483646, 2147483646.0},
        {2147483648.0, INT_MAX, 2147483648, 2147483648, 2147483648, 2147483648.0},
        {3000000000.0, INT_MAX, 3000000000, 3000000000, 3000000000, 3000000000.0},
        {9.2e18, INT_MAX, UINT_MAX, 9200000000000000000, 9200000000000000000, 9.2e18},
        {1e300, INT_MAX, UINT_MAX, LLONG_MAX, ULLONG_MAX, 1e300},
        {9223372036854775808.0, INT_MAX, UINT_MAX, LLONG_MAX, 1ULL << 63, 9223372036854775808.0},
        {0.0, 0, 0, 0, 0, 0.0},
        {"5", 0, 0, 0, 0, 0.0},
    };
    for (const auto& [value, asInt, asUInt, asInt64, asUInt64, asDouble] : cases) {
        EXPECT_TRUE(value.asInt() == asInt && value.asUInt() == asUInt) << asDouble;
        EXPECT_TRUE(value.asInt64() == asInt64 && value.asUInt64() == asUInt64) << asDouble;
        EXPECT_TRUE(value.asDouble() == asDouble && value.asBool() == (asDouble != 0)) << asDouble;
    }
    EXPECT_EQ(variant_t(std::nan("")).asInt(), 0);
    EXPECT_TRUE(variant_t(5).asString() == nullptr && variant_t("5").asWString() == nullptr);
    EXPECT_TRUE(variant_t("5").asBlock() == nullptr && variant_t("5").blockSize() == 0);
}

TEST(Variant, copiesOwnTheirTextsAndBorrowedOnesShareThem) {
    const variant_t borrowed = variant_t::borrowed("text"), block("ab", 2);
    for (const variant_t& original : {variant_t("text"), variant_t(L"text"), block, variant_t(7), borrowed}) {
        variant_t copy(original), assigned("replaced");
        assigned = original;
        variant_t& same = assigned;
        assigned = same;
        assigned = std::move(same);
        for (const variant_t* other : {&copy, &assigned}) {
            EXPECT_TRUE(*other == original && other->kind() == original.kind());
            const bool isBlock = original.kind() == qel_block;
            EXPECT_EQ(std::string_view(static_cast<const char*>(other->asBlock()), other->blockSize()),
                      isBlock ? "ab" : "");
            EXPECT_EQ(std::memcmp(other, &original, 12) == 0,
                      original.kind() == qel_int || original.kind() == qel_string_ref);
        }
        EXPECT_TRUE(variant_t(std::move(copy)) == original);
        EXPECT_EQ(copy.kind(), qel_empty);
    }
}

static std::vector<std::size_t> obtained;
static int released = 0;

struct CountingAllocator : variant_t::allocator_t {
    void release(void* block) override { ++released, allocator_t::release(block); }
    void* obtain(std::size_t size) override { return obtained.push_back(size), allocator_t::obtain(size); }
};

TEST(Variant, ownedMemoryGoesThroughTheSharedAllocator) {
    new (static_cast<void*>(&variant_t::m_mem)) CountingAllocator;
    {
        const variant_t text("abc"), wide(L"abc"), block("ab", 2);
        variant_t copy(text);
        copy = block;
        copy = wide;
        variant_t moved(std::move(copy));  // takes the memory over
        copy = std::move(moved);
        copy = 1;
    }
    new (static_cast<void*>(&variant_t::m_mem)) variant_t::allocator_t;
    EXPECT_EQ(obtained, (std::vector<std::size_t>{4, 16, 6, 4, 6, 16}));
    EXPECT_EQ(released, 6);
}

// On i386 a pointer leaves half of the value bytes free, and whoever builds variants by hand may leave anything there.
TEST(Variant, ofAPointerOnlyThePointerCounts) {
    const char* const null = nullptr;
    const auto withNoise = [](variant_t value) {
        std::memset(reinterpret_cast<char*>(&value) + sizeof(void*), 0x5A, 8 - sizeof(void*));
        return value;
    };
    obtained.clear();
    released = 0;
    new (static_cast<void*>(&variant_t::m_mem)) CountingAllocator;
    for (const variant_t& original : {variant_t(null), variant_t(nullptr, 3), variant_t::borrowed(null)}) {
        const variant_t noisy = withNoise(original), copy(noisy);
        EXPECT_TRUE(copy == original && noisy == original);
        EXPECT_TRUE(copy.asBlock() == nullptr && copy.blockSize() == 0 && copy.asString() == nullptr);
    }
    new (static_cast<void*>(&variant_t::m_mem)) variant_t::allocator_t;
    EXPECT_TRUE(obtained.empty() && released == 0);
    EXPECT_TRUE(withNoise(variant_t::borrowed("a")) == withNoise("a"));
}

struct SmallAllocator : variant_t::allocator_t {
    void* obtain(std::size_t size) override {
        return size > 1000 ? throw std::bad_alloc() : allocator_t::obtain(size);
    }
};

TEST(Variant, aBlockThatMemoryCannotHoldIsRefused) {
    new (static_cast<void*>(&variant_t::m_mem)) SmallAllocator;
    for (const std::uint32_t count : {0xFFFFFFFBU, 0xFFFFFFFCU, 0xFFFFFFFFU})
        EXPECT_THROW(variant_t(&count, count), std::bad_alloc);
    new (static_cast<void*>(&variant_t::m_mem)) variant_t::allocator_t;
}

}  // namespace vorn_3_1::public_tests
