#include "bridge/automation/Modules.h"

#include <QCoreApplication>
#include <QJSEngine>

#include <gtest/gtest.h>

namespace brinmoor::automation {
namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Counts, of 2,000 random lists of tabs to be closed, those in which some window's tabs don't come
/// from the right to the left. The windows stand in runs, as they come from the planner.
constexpr std::string_view experiment = R"(
    (function () {
        let seed = 20240607;
        const random = limit => {
            seed = (seed * 1103515245 + 12345) % 2147483648;
            return Math.floor(seed / 2147483648 * limit);
        };
        const comparator = (a, b) =>
            String(a.windowID) !== String(b.windowID) ? 0 : b.index - a.index;
        const wrong = sorted => {
            const last = {};
            return sorted.some(tab => {
                const outOfOrder = tab.windowID in last && last[tab.windowID] < tab.index;
                last[tab.windowID] = tab.index;
                return outOfOrder;
            });
        };
        let wrongCases = 0;
        for (let round = 0; round < 2000; ++round) {
            const targets = [];
            for (let w = 0, windows = 1 + random(6); w < windows; ++w)
                for (let i = 0, tabs = 1 + random(12); i < tabs; ++i)
                    targets.push({ windowID: 'w' + w, index: 1 + random(100) });
            wrongCases += wrong(targets.slice().sort(comparator)) ? 1 : 0;
        }
        return wrongCases;
    })()
)";

int argumentCount = 1;
char programName[] = "test";
char* programArguments[] = {programName, nullptr};

class StableSort : public ::testing::Test {
protected:
    [[nodiscard]] QJSValue evaluate(std::string_view script) {
        return engine.evaluate(text(script));
    }
    void install() {
        const QJSValue install = stableSort(engine).property(QStringLiteral("installStableSort"));
        ASSERT_FALSE(install.call().isError());
    }

    QCoreApplication application{argumentCount, programArguments};
    QJSEngine engine;
};

TEST_F(StableSort, putsTheTabsOfEachWindowFromTheRightToTheLeft) {
    RecordProperty("wrongWithTheEnginesOwn", evaluate(experiment).toInt());
    install();
    EXPECT_EQ(evaluate(experiment).toInt(), 0);
}

TEST_F(StableSort, isNeededHere) {
    EXPECT_GT(evaluate(experiment).toInt(), 0);
}

TEST_F(StableSort, keepsTheOrderOfEqualElements) {
    install();
    EXPECT_EQ(evaluate(R"(
        const many = [];
        for (let i = 0; i < 1000; ++i)
            many.push({ key: i * 7919 % 13, place: i });
        many.sort((a, b) => a.key - b.key);
        many.every((each, i) => i === 0 || many[i - 1].key < each.key ||
            (many[i - 1].key === each.key && many[i - 1].place < each.place))
    )")
                  .toBool(),
              true);
}

struct Case {
    const char* expression;
    const char* sorted;
};

class SortedAs : public StableSort, public ::testing::WithParamInterface<Case> {};

TEST_P(SortedAs, theLanguageSays) {
    install();
    EXPECT_EQ(evaluate(GetParam().expression).toString().toStdString(), GetParam().sorted);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SortedAs,
    ::testing::Values(
        Case{"[].sort().length", "0"}, Case{"[3, 20, 100].sort()", "100,20,3"},
        Case{"[3, 20, 100].sort((a, b) => b - a)", "100,20,3"},
        Case{"JSON.stringify([undefined, 2, undefined, 1].sort())", "[1,2,null,null]"},
        Case{"const holes = [3, , 1]; holes.sort(); (2 in holes) + ':' + holes[1]", "false:3"},
        Case{"const same = [2, 1]; same.sort() === same", "true"},
        Case{"[2, 1].sort(() => NaN)", "2,1"},
        Case{"try { [2, 1].sort(7) } catch (e) { e.name }", "TypeError"},
        Case{"Object.keys([1]).concat((() => { const all = []; for (const k in [1]) "
             "all.push(k); return all; })())",
             "0,0"},
        Case{"['é', 'z', 'a'].sort()", "a,z,é"}));

} // namespace
} // namespace brinmoor::automation
