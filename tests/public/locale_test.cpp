// Hosts that change the global locale: numbers read and write as string streams of that locale do.
#include <locale>

#include "fixture.h"

namespace vorn_3_1::public_tests {

struct GroupedNumbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\2"; }
};

struct UnderscoreIsBlank : std::ctype<char> {
    UnderscoreIsBlank() : std::ctype<char>(table()) {}
    static const mask* table() {
        static std::vector<mask> masks(classic_table(), classic_table() + table_size);
        masks['_'] = space;
        return masks.data();
    }
};

struct GlobalLocale {
    explicit GlobalLocale(const std::locale& locale) : previous(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(previous); }
    const std::locale previous;
};

static std::locale oddLocale() {
    return std::locale(std::locale(std::locale::classic(), new GroupedNumbers), new UnderscoreIsBlank);
}

template <class T>
static variant_t extracted(const std::string& text) {
    std::stringstream stream(text);
    T value{};
    stream >> value;
    return stream.fail() ? variant_t() : variant_t(value);
}

TEST(Locale, everyShortNumberIsReadAsAStringStreamReadsIt) {
    const std::pair<qel_variant_type_t, variant_t (*)(const std::string&)> cases[] = {
        {qel_bool, extracted<bool>},
        {qel_int, extracted<int>},
        {qel_uint, extracted<unsigned>},
        {qel_int64, extracted<long long>},
        {qel_uint64, extracted<unsigned long long>},
        {qel_double, extracted<double>}};
    Texts texts = wordsOf(
        "0 1 9 . , - e _ 12.34.56 1.23.45,6 123.45 1.2345 42.94.96.72.96 42.94.96.72.95 1,5e3 10.00e1");
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (char c : {'0', '1', '.', ',', '-', 'e', '_'}) {
            if (texts[i].size() < 4 && texts[i] + c != "--") texts.push_back(texts[i] + c);
        }
    }
    for (const auto& [type, extract] : cases) {
        for (const std::locale& locale : {std::locale::classic(), oddLocale(), std::locale::classic()}) {
            const GlobalLocale changed(locale);
            const Cli cli;
            cli.option("q", type)->positional()->tokenize('\0');
            Texts differing;
            for (const std::string& text : texts) {
                IParseResult* result = nullptr;
                cli.parser->createResult(&result);
                cli.parseInto(result, {text});
                const variant_t actual = result->get("q").value, expected = extract(text);
                if (actual != expected || actual.kind() != expected.kind()) differing.push_back(text);
                result->destroy();
            }
            EXPECT_EQ(differing, Texts()) << type;
        }
    }
}

TEST(Locale, otherTextsFollowItToo) {
    const Cli cli;
    cli.option("int", qel_int, "d")->defaultValue(-1234567);
    cli.option("double", qel_double)->defaultValue(1234.5);
    cli.option("hex", qel_uint64)->allowValue(0x10000ULL)->tokenize('\0');
    EXPECT_EQ(cli.parseStream("--\n_a"), "0");
    const GlobalLocale changed(oddLocale());
    EXPECT_EQ(cli.parseStream("_--hex\n10000h\n_--\n__ _b_\n_#c"), "0");
    EXPECT_EQ(cli.passedThrough(), "[_a][b_]");
    EXPECT_EQ(cli.parseInto(cli.result, {"--hex=0x5"}),
              "2 Value validation problem in argument '--hex=0x5': Option 'hex' does not allow value '0x5'. "
              "Possible values follows: '6.55.36'");
    EXPECT_EQ(cli.stored("int double hex"), "int[-1.23.45.67] double[12.34,5] hex[10000h] ");
    EXPECT_STREQ(cli.parser->getDescription(), "-int=<integer> (-1.23.45.67)  d\n\n");
}

}  // namespace vorn_3_1::public_tests
