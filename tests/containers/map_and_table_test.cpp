#include <memory>

#include "containers/letters.h"
#include "support/test.h"

namespace {

TEST(Map, FindsTheOldestByKeyAndTheNewestValue) {
    KOVAMap map;
    EXPECT_TRUE(map.GetFrontKey() == 0 && map.GetBackKey() == 0 && map.GetValueByKey(5) == nullptr);
    map.PushBack(5, test::entry('a'));
    map.Push(5, test::entry('b'));
    map.Append(6, test::entry('b'));
    map.PushFront(4, test::entry('c'));
    EXPECT_EQ(test::text(map.Begin(), map.End()) + test::text(map.ReverseBegin(), map.ReverseEnd()), "cabbbbac");
    EXPECT_EQ((Numbers{map.GetFrontKey(), map.GetBackKey(), map.GetTopKey()}), (Numbers{4, 6, 6}));
    EXPECT_EQ(*map.FindByKey(5), test::entry('a'));
    EXPECT_EQ(map.GetValueByKey(5), test::entry('b'));
    EXPECT_TRUE(map.FindByKey(7) == map.End() && map.GetValueByKey(7) == nullptr);
    map.Unique(); // by value, whatever the keys
    EXPECT_EQ(test::text(map.Begin(), map.End()), "cab");
    EXPECT_EQ(map.GetBackKey(), 5);
    map.RemoveByKey(5);
    map.Remove(test::entry('c'));
    map.RemoveByKey(9);
    EXPECT_TRUE(map.GetSize() == 1 && map.GetFrontKey() == 5);
    map.Pop();
    EXPECT_TRUE(map.IsEmpty() && map.GetTop() == nullptr);
}

/// The row that the key finds, as "key=value"; "none" when there is none.
std::string found(KOVATable& table, KOVAValue key) {
    KOVAValue value("untouched");
    if (table.Get(&key, &value, nullptr).IsFailure()) return "none";
    return std::string(key) + "=" + std::string(value);
}

TEST(Table, AddKeepsOlderRowsAndSetReplaces) {
    KOVATable table;
    KOVAValue const key("k"), one(1), two(2), three(3);
    EXPECT_EQ(table.Add(&key, &one, nullptr), 0);
    EXPECT_EQ(table.Add(&key, &two, nullptr), 0);
    EXPECT_EQ(found(table, "k"), "k=2");
    EXPECT_EQ(table.Set(&key, &three, nullptr), 0);
    EXPECT_EQ((Texts{found(table, "k"), found(table, "K")}), (Texts{"k=3", "none"}));
    EXPECT_EQ(table.GetRowsCount(), 2);
    KOVAValue first, second, third("stays");
    EXPECT_EQ(table.Get(0, &first, &second, &third, nullptr), 0);
    EXPECT_EQ(std::string(first) + std::string(second) + std::string(third), "k1stays");
    EXPECT_EQ(table.Get(1, &first, nullptr), 0);
    EXPECT_EQ(table.Get(1, nullptr), 0);
    for (int const row : {-1, 2}) EXPECT_EQ(table.Get(row, &first, nullptr), 0x0100000B);
    EXPECT_EQ(table.Get(static_cast<KOVAValue*>(nullptr)), 0x01000001);
    // Rows without a key, and with one that equals nothing.
    KOVAValue unknown;
    table.Add(nullptr);
    table.Set(nullptr);
    table.Set(&unknown, &one, nullptr);
    table.Set(&unknown, &one, nullptr);
    EXPECT_EQ(table.GetRowsCount(), 6);
    EXPECT_EQ(table.Get(&unknown, nullptr), 0x01000001);
}

TEST(Table, FindsEveryKeyHoweverManyAndCopiesDeeply) {
    KOVATable table;
    table.RaiseReference();
    for (int i = 0; i < 3000; ++i) {
        // Texts, ints and doubles whose hash codes collide with those of the ints.
        KOVAValue const keys[] = {i, i + 0.5, KOVAString::valueOf(i)};
        KOVAValue const value(i);
        for (KOVAValue const& key : keys) table.Set(&key, &value, nullptr);
    }
    KOVATable copy(table);
    KOVAValue const key(0), value("changed");
    table.Set(&key, &value, nullptr);
    EXPECT_EQ((Texts{found(table, 0), found(copy, 0), found(copy, 2999.5)}),
              (Texts{"0=changed", "0=0", "2999.500000=2999"}));
    for (int i = 1; i < 3000; ++i)
        ASSERT_EQ(found(copy, KOVAString::valueOf(i)), std::to_string(i) + "=" + std::to_string(i));
    copy = table;
    copy = *&copy;
    EXPECT_EQ(found(copy, 0), "0=changed");
    EXPECT_EQ(copy.GetRowsCount(), 9000);
    EXPECT_TRUE(copy.GetReferenceCount() == 0 && table.GetReferenceCount() == 1);
}

unsigned oneForAll(int* const&) { return 33; }

TEST(HashIndex, GrowsByLoadAndProbesAroundTheEnd) {
    kova::detail::HashIndex<KOVAValue> index;
    for (int i = 0; i < 12; ++i) index.insert(i, i);
    EXPECT_EQ(index.slots(), 17);
    index.insert(12, 12);
    EXPECT_EQ((Numbers{index.slots(), index.count(), *index.find(12)}), (Numbers{34, 13, 12}));
    // All in one run, which begins at the last of 34 slots.
    int places[25];
    kova::detail::HashIndex<int*> run(&oneForAll);
    for (int i = 0; i < 25; ++i) run.insert(places + i, i);
    for (int i = 0; i < 25; ++i) EXPECT_EQ(*run.find(places + i), i);
    EXPECT_EQ(run.find(nullptr), nullptr);
}

} // namespace
