// Searching a whole library: every text folded at the query, nothing kept between two queries.
// Beside it the floor, which is to read every byte of the same texts, and peers in this process.

#include "bench/Comparisons.h"
#include "bench/SampleLinks.h"
#include "core/search/LinkQuery.h"
#include "core/text/Blocks.h"
#include "core/text/Characters.h"

#include <benchmark/benchmark.h>

#include <sqlite3.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>

namespace brinmoor {
namespace {

/// Two terms each. They are parts of the words that the sample titles are made of.
enum QueryKind { rare, common, foreign, absent };
constexpr const char* queries[]{"glassesdev recipesma", "learn design", "москва tool",
                                "elephant zebra"};

const std::vector<SavedLink>& library(std::int64_t size) {
    static std::map<std::int64_t, std::vector<SavedLink>> made;
    auto& links = made[size];
    if (links.empty())
        links = sampleLinks(static_cast<std::size_t>(size));
    return links;
}

template <class Visit>
void visitTexts(const SavedLink& link, Visit visit) {
    visit(link.title);
    visit(link.url);
    visit(link.note);
    visit(link.collection);
    visit(link.browser);
    for (const std::string& tag : link.tags)
        visit(tag);
}

/// Sixteen bytes at once, the rest eight and one at a time.
std::uint64_t sumOf(const std::string& text) {
    std::uint64_t sum = 0;
    const char* from = text.data();
    const char* const end = from + text.size();
    __m128i sums = _mm_setzero_si128();
    for (; end - from >= 16; from += 16)
        sums = _mm_xor_si128(sums, text::loadBlock(from));
    for (; end - from >= 8; from += 8)
        sum ^= text::loadWord<std::uint64_t>(from);
    for (; from != end; ++from)
        sum ^= static_cast<unsigned char>(*from);
    return sum ^ static_cast<std::uint64_t>(
                     _mm_cvtsi128_si64(_mm_xor_si128(sums, _mm_unpackhi_epi64(sums, sums))));
}

void readEveryByte(benchmark::State& state) {
    const auto& links = library(state.range(0));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (const SavedLink& link : links)
            visitTexts(link, [&](const std::string& text) { sum ^= sumOf(text); });
        benchmark::DoNotOptimize(sum);
    }
}

void search(benchmark::State& state) {
    const auto& links = library(state.range(0));
    std::size_t found = 0;
    for (auto _ : state) {
        LinkQuery query(queries[state.range(1)]);
        found = 0;
        for (const SavedLink& link : links)
            found += query.matches(link) ? 1U : 0U;
    }
    state.counters["found"] = static_cast<double>(found);
}

/// Each text folded with plain ICU, then looked into.
class IcuQuery {
public:
    explicit IcuQuery(const char* query) {
        UErrorCode status = U_ZERO_ERROR;
        decomposition_ = icu::Normalizer2::getNFDInstance(status);
        const std::string text = query;
        const std::size_t blank = text.find(' ');
        terms_ = {folded(text.substr(0, blank)), folded(text.substr(blank + 1))};
    }

    [[nodiscard]] bool matches(const SavedLink& link) const {
        std::vector<icu::UnicodeString> texts;
        visitTexts(link, [&](const std::string& text) { texts.push_back(folded(text)); });
        return std::ranges::all_of(terms_, [&](const icu::UnicodeString& term) {
            return std::ranges::any_of(
                texts, [&](const icu::UnicodeString& text) { return text.indexOf(term) >= 0; });
        });
    }

private:
    [[nodiscard]] icu::UnicodeString folded(const std::string& text) const {
        UErrorCode status = U_ZERO_ERROR;
        const auto decomposed =
            decomposition_->normalize(icu::UnicodeString::fromUTF8(text), status);
        icu::UnicodeString bare;
        for (int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1))
            if ((U_MASK(u_charType(decomposed.char32At(at))) & U_GC_M_MASK) == 0)
                bare.append(decomposed.char32At(at));
        return bare.foldCase();
    }

    const icu::Normalizer2* decomposition_;
    std::vector<icu::UnicodeString> terms_;
};

void searchByIcu(benchmark::State& state) {
    const auto& links = library(state.range(0));
    std::size_t found = 0;
    for (auto _ : state) {
        const IcuQuery query(queries[state.range(1)]);
        found = 0;
        for (const SavedLink& link : links)
            found += query.matches(link) ? 1U : 0U;
    }
    state.counters["found"] = static_cast<double>(found);
}

/// A table in memory, one row a link, asked with LIKE, which ignores the case of ASCII letters.
class Table {
public:
    explicit Table(const std::vector<SavedLink>& links) {
        sqlite3* opened = nullptr;
        expect(sqlite3_open(":memory:", &opened));
        database_.reset(opened);
        run("CREATE TABLE links (title, url, note, tags, extra)");
        run("BEGIN");
        const Statement insert = prepared("INSERT INTO links VALUES (?, ?, ?, ?, ?)");
        for (const SavedLink& link : links)
            add(insert.get(), link);
        run("COMMIT");
    }

    [[nodiscard]] std::int64_t count(const std::string& query) const {
        static const std::string everywhere =
            "(title LIKE ?1 OR url LIKE ?1 OR note LIKE ?1 OR tags LIKE ?1 OR extra LIKE ?1)";
        std::string second = everywhere;
        for (std::size_t at = 0; (at = second.find("?1", at)) != std::string::npos;)
            second[at + 1] = '2';
        const Statement select =
            prepared("SELECT count(*) FROM links WHERE " + everywhere + " AND " + second);
        const std::size_t blank = query.find(' ');
        bind(select.get(), 1, "%" + query.substr(0, blank) + "%");
        bind(select.get(), 2, "%" + query.substr(blank + 1) + "%");
        if (sqlite3_step(select.get()) != SQLITE_ROW)
            std::abort();
        return sqlite3_column_int64(select.get(), 0);
    }

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Close>;

    static void expect(int status) {
        if (status != SQLITE_OK)
            std::abort();
    }
    void run(const char* statement) const {
        expect(sqlite3_exec(database_.get(), statement, nullptr, nullptr, nullptr));
    }
    [[nodiscard]] Statement prepared(const std::string& text) const {
        sqlite3_stmt* statement = nullptr;
        expect(sqlite3_prepare_v2(database_.get(), text.c_str(), -1, &statement, nullptr));
        return Statement(statement);
    }
    static void bind(sqlite3_stmt* statement, int place, const std::string& text) {
        expect(sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()),
                                 SQLITE_TRANSIENT));
    }
    static void add(sqlite3_stmt* insert, const SavedLink& link) {
        std::string tags;
        for (const std::string& tag : link.tags)
            tags += tag + "\n";
        bind(insert, 1, link.title);
        bind(insert, 2, link.url);
        bind(insert, 3, link.note);
        bind(insert, 4, tags);
        bind(insert, 5, link.collection + " " + link.browser);
        if (sqlite3_step(insert) != SQLITE_DONE)
            std::abort();
        sqlite3_reset(insert);
    }

    std::unique_ptr<sqlite3, Close> database_;
};

void searchBySqlite(benchmark::State& state) {
    static std::map<std::int64_t, std::unique_ptr<Table>> tables;
    auto& table = tables[state.range(0)];
    if (!table)
        table = std::make_unique<Table>(library(state.range(0)));
    std::int64_t found = 0;
    for (auto _ : state)
        found = table->count(queries[state.range(1)]);
    state.counters["found"] = static_cast<double>(found);
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(readEveryByte)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(search)
    ->ArgsProduct({{1000, 10'000, 100'000}, {rare, common, foreign, absent}})
    ->Unit(unit);
BENCHMARK(searchBySqlite)->ArgsProduct({{100'000}, {rare, common, foreign, absent}})->Unit(unit);
BENCHMARK(searchByIcu)->Args({100'000, rare})->Unit(unit);

std::vector<Comparison> comparisons() {
    std::vector<Comparison> rows;
    for (const char* size : {"1000", "10000", "100000"})
        for (const char* query : {"0", "1", "2", "3"})
            rows.push_back(
                {std::string("search ") + size + " for \"" + queries[*query - '0'] + "\"",
                 std::string("search/") + size + "/" + query, "reading every byte",
                 std::string("readEveryByte/") + size});
    for (const char* query : {"0", "1", "2", "3"})
        rows.push_back({std::string("search 100000 for \"") + queries[*query - '0'] + "\"",
                        std::string("search/100000/") + query, "SQLite LIKE",
                        std::string("searchBySqlite/100000/") + query});
    rows.push_back({std::string("search 100000 for \"") + queries[0] + "\"", "search/100000/0",
                    "plain ICU", "searchByIcu/100000/0"});
    return rows;
}

} // namespace
} // namespace brinmoor

int main(int argc, char** argv) {
    return brinmoor::runComparisons(argc, argv, brinmoor::comparisons());
}
