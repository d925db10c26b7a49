// Sections and keys in an SQLite file.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/settings_store.h"
#include "tests/host/StoreOnDisk.h"
#include "tests/platform/PrintText.h"

namespace qzsql {
namespace {

using Use = SettingsStore::Use;
using Texts = std::vector<std::string>;

class SettingsStoreTest : public testing::Test {
 protected:
    SettingsStoreTest() { SettingsStore::Create(onDisk_.Path()); }

    const std::string& Path() const { return onDisk_.Path(); }

    /// Sets the number "key" of the section "root" in a transaction of its own.
    void SetNumber(int number) const {
        SettingsStore store(Path(), Use::Write);
        {
            const QZOpenSection root(store, u"root", 1);
            store.WriteInt(u"key", number);
        }
        store.ThrowIfFailed();
    }
    int GetNumber() const {
        SettingsStore store(Path(), Use::Read);
        const QZOpenSection root(store, u"root", 0);
        const int number = store.ReadInt(u"key", -1);
        store.ThrowIfFailed();
        return number;
    }
    void RunSql(const char* sql) const { Connection(Path(), SQLITE_OPEN_READWRITE).Execute(sql); }

    StoreOnDisk onDisk_;
};

Texts SubSections(SettingsStore& store) {
    Texts names;
    for (const auto& name : store.GetSubSections()) names.push_back(name.ToUtf8());
    return names;
}

template <class Do>
std::string WhatItThrows(Do act) {
    try {
        act();
    } catch (const StoreError& error) {
        return error.what();
    }
    return "nothing";
}

TEST_F(SettingsStoreTest, KeepsNumbersAndTexts) {
    const std::u16string broken = {u'a', 0xD800, u'b'};
    const std::u16string withNul = {u'a', u'\0', u'b'};
    {
        SettingsStore store(Path(), Use::Write);
        const QZOpenSection root(store, u"root", 1);
        store.WriteInt(u"least", INT_MIN);
        store.WriteInt(u"most", INT_MAX);
        store.WriteString(u"empty", u"", 0);
        store.WriteString(u"text", u"Größe \U0001F600", 0);
        store.WriteString(u"broken", broken, 0);
        store.WriteString(u"nul", withNul, 0);
        store.WriteString(broken, u"under a broken key", 0);
    }
    SettingsStore store(Path(), Use::Read);
    const QZOpenSection root(store, u"root", 0);
    EXPECT_EQ(store.ReadInt(u"least", 0), INT_MIN);
    EXPECT_EQ(store.ReadInt(u"most", 0), INT_MAX);
    EXPECT_EQ(store.ReadString(u"empty", u"default", 0), u"");
    EXPECT_EQ(store.ReadString(u"text", u"", 0), u"Größe \U0001F600");
    EXPECT_EQ(store.ReadString(u"broken", u"", 0), broken);
    EXPECT_EQ(store.ReadString(u"nul", u"", 0), withNul);
    EXPECT_EQ(store.ReadString(broken, u"", 0), u"under a broken key");
}

TEST_F(SettingsStoreTest, AnswersWithTheDefaultWhereThereIsNoSuchValue) {
    SettingsStore store(Path(), Use::Write);
    const QZOpenSection root(store, u"root", 1);
    store.WriteInt(u"number", 1);
    store.WriteString(u"text", u"2", 0);
    EXPECT_EQ(store.ReadInt(u"missing", 7), 7);
    EXPECT_EQ(store.ReadString(u"missing", u"7", 0), u"7");
    EXPECT_EQ(store.ReadInt(u"text", 7), 7);
    EXPECT_EQ(store.ReadString(u"number", u"7", 0), u"7");
    EXPECT_EQ(store.ReadInt(u"NUMBER", 7), 7);
}

TEST_F(SettingsStoreTest, ANewValueReplacesTheFormer) {
    SettingsStore store(Path(), Use::Write);
    const QZOpenSection root(store, u"root", 1);
    store.WriteInt(u"key", 1);
    store.WriteString(u"key", u"text", 0);
    EXPECT_EQ(store.ReadInt(u"key", 7), 7);
    EXPECT_EQ(store.ReadString(u"key", u"", 0), u"text");
}

TEST_F(SettingsStoreTest, SectionsNest) {
    SettingsStore store(Path(), Use::Write);
    const QZOpenSection root(store, u"root", 1);
    store.WriteInt(u"depth", 1);
    {
        const QZOpenSection inner(store, u"inner", 1);
        store.WriteInt(u"depth", 2);
        {
            const QZOpenSection sameName(store, u"inner", 1);
            store.WriteInt(u"depth", 3);
        }
        EXPECT_EQ(store.ReadInt(u"depth", 0), 2);
        EXPECT_NE(store.SectionExists(u"inner"), 0);
        EXPECT_EQ(store.SectionExists(u"root"), 0);
    }
    EXPECT_EQ(store.ReadInt(u"depth", 0), 1);
    EXPECT_NE(store.SectionExists(u"inner"), 0);
}

TEST_F(SettingsStoreTest, SubsectionsComeInTheOrderOfTheirCreation) {
    {
        SettingsStore store(Path(), Use::Write);
        const QZOpenSection root(store, u"root", 1);
        for (const char16_t* name : {u"z", u"a", u"m", u"Table10", u"Table2", u"a"}) {
            const QZOpenSection section(store, name, 1);
        }
    }
    SettingsStore store(Path(), Use::Read);
    const QZOpenSection root(store, u"root", 0);
    EXPECT_EQ(SubSections(store), Texts({"z", "a", "m", "Table10", "Table2"}));
}

TEST_F(SettingsStoreTest, ASectionThatIsMissingReadsAsEmptyAndSwallowsWrites) {
    SettingsStore store(Path(), Use::Write);
    const QZOpenSection root(store, u"root", 1);
    {
        const QZOpenSection missing(store, u"missing", 0);
        store.WriteInt(u"key", 1);
        EXPECT_EQ(store.ReadInt(u"key", 7), 7);
        const QZOpenSection below(store, u"below", 1);
        store.WriteInt(u"key", 1);
        EXPECT_EQ(SubSections(store), Texts());
    }
    EXPECT_EQ(store.SectionExists(u"missing"), 0);
    EXPECT_EQ(store.ReadInt(u"key", 7), 7);
    store.ThrowIfFailed();
}

TEST_F(SettingsStoreTest, OpenedForReadingMakesNoSection) {
    SetNumber(1);
    const auto before = onDisk_.Bytes();
    {
        SettingsStore store(Path(), Use::Read);
        const QZOpenSection root(store, u"root", 1);
        const QZOpenSection made(store, u"made", 1);
        EXPECT_EQ(store.ReadInt(u"key", 7), 7);
        store.WriteInt(u"key", 1);
        store.ThrowIfFailed();
    }
    EXPECT_EQ(onDisk_.Bytes(), before);
}

TEST_F(SettingsStoreTest, OpenedForReadingRefusesToWriteAndRemembersIt) {
    SetNumber(1);
    SettingsStore store(Path(), Use::Read);
    {
        const QZOpenSection root(store, u"root", 0);
        store.WriteInt(u"key", 2);
    }
    EXPECT_EQ(WhatItThrows([&] { store.ThrowIfFailed(); }), Path() + ": was opened for reading and can't be changed");
    store.ThrowIfFailed();  // what was told is forgotten
    EXPECT_EQ(GetNumber(), 1);
}

TEST_F(SettingsStoreTest, OneTransactionReachesFromTheOutermostOpenToItsClose) {
    SetNumber(1);
    SettingsStore store(Path(), Use::Write);
    {
        const QZOpenSection root(store, u"root", 1);
        { const QZOpenSection inner(store, u"inner", 1); }
        store.WriteInt(u"key", 2);
        EXPECT_EQ(GetNumber(), 1);
    }
    EXPECT_EQ(GetNumber(), 2);
}

TEST_F(SettingsStoreTest, AnExceptionThatPassesChangesNothing) {
    SetNumber(1);
    SettingsStore store(Path(), Use::Write);
    EXPECT_THROW(
        {
            const QZOpenSection root(store, u"root", 1);
            store.WriteInt(u"key", 2);
            throw std::logic_error("passes");
        },
        std::logic_error);
    EXPECT_EQ(GetNumber(), 1);
}

TEST_F(SettingsStoreTest, DiscardHoldsForOneTransaction) {
    SetNumber(1);
    SettingsStore store(Path(), Use::Write);
    {
        const QZOpenSection root(store, u"root", 1);
        store.WriteInt(u"key", 2);
        store.Discard();
    }
    EXPECT_EQ(GetNumber(), 1);
    {
        const QZOpenSection root(store, u"root", 1);
        store.WriteInt(u"key", 3);
    }
    EXPECT_EQ(GetNumber(), 3);
}

TEST_F(SettingsStoreTest, EmptyingLeavesTheSectionAndWhatIsBesideIt) {
    SettingsStore store(Path(), Use::Write);
    const QZOpenSection all(store, u"all", 1);
    for (const char16_t* name : {u"emptied", u"beside"}) {
        const QZOpenSection section(store, name, 1);
        store.WriteInt(u"key", 1);
        const QZOpenSection below(store, u"below", 1);
        store.WriteInt(u"key", 2);
        const QZOpenSection deeper(store, u"deeper", 1);
        store.WriteInt(u"key", 3);
    }
    {
        const QZOpenSection section(store, u"emptied", 0);
        store.EmptySection();
        EXPECT_EQ(store.ReadInt(u"key", 7), 7);
        EXPECT_EQ(SubSections(store), Texts());
        const QZOpenSection below(store, u"below", 1);
        EXPECT_EQ(store.ReadInt(u"key", 7), 7);  // made anew, not found again
    }
    EXPECT_EQ(SubSections(store), Texts({"emptied", "beside"}));
    const QZOpenSection section(store, u"beside", 0);
    const QZOpenSection below(store, u"below", 0);
    const QZOpenSection deeper(store, u"deeper", 0);
    EXPECT_EQ(store.ReadInt(u"key", 7), 3);
}

TEST_F(SettingsStoreTest, EmptyingEndsWhereSectionsLieWithinEachOther) {
    RunSql(
        "INSERT INTO section VALUES (1, 0, 'root'), (2, 1, 'a'), (3, 2, 'b'); UPDATE section SET parent = 3 WHERE id = "
        "1");
    RunSql("UPDATE section SET parent = 0 WHERE id = 1; INSERT INTO section VALUES (4, 4, 'itself')");
    SettingsStore store(Path(), Use::Write);
    {
        const QZOpenSection root(store, u"root", 0);
        store.EmptySection();
        EXPECT_EQ(SubSections(store), Texts());
    }
    store.ThrowIfFailed();
}

TEST_F(SettingsStoreTest, NumbersThatAreNoneOfOursReadAsMissing) {
    SetNumber(1);
    for (const char* value : {"2147483648", "-2147483649", "1.5", "x'3132'", "'1'"}) {
        RunSql(("UPDATE setting SET value = " + std::string(value)).c_str());
        EXPECT_EQ(GetNumber(), -1) << value;
    }
}

TEST_F(SettingsStoreTest, ClosingOnceTooOftenDoesNothing) {
    SettingsStore store(Path(), Use::Write);
    store.CloseSection();
    {
        const QZOpenSection root(store, u"root", 1);
        store.WriteInt(u"key", 5);
    }
    store.CloseSection();
    store.ThrowIfFailed();
    EXPECT_EQ(GetNumber(), 5);
}

TEST_F(SettingsStoreTest, WhileAnotherWritesTheErrorIsRememberedAndNothingIsWritten) {
    SetNumber(1);
    SettingsStore first(Path(), Use::Write);
    const QZOpenSection held(first, u"root", 1);
    first.WriteInt(u"key", 2);
    SettingsStore second(Path(), Use::Write);
    {
        const QZOpenSection root(second, u"root", 1);
        second.WriteInt(u"key", 3);
        EXPECT_EQ(second.ReadInt(u"key", 7), 7);
    }
    EXPECT_EQ(WhatItThrows([&] { second.ThrowIfFailed(); }),
              Path() + ": locked by another process; try again when that has ended");
}

TEST_F(SettingsStoreTest, AFileThatIsThereIsNotReplaced) {
    const auto before = onDisk_.Bytes();
    EXPECT_EQ(WhatItThrows([&] { SettingsStore::Create(Path()); }),
              Path() + ": is there already; name a new file, or remove it first");
    EXPECT_EQ(onDisk_.Bytes(), before);
}

class BadStore : public SettingsStoreTest {
 protected:
    /// Refused in both uses with this message; the file stays as it is.
    void ExpectRefused(const std::string& what) const {
        const auto before = onDisk_.Bytes();
        for (const Use use : {Use::Read, Use::Write}) {
            EXPECT_EQ(WhatItThrows([&] { SettingsStore(Path(), use); }), Path() + ": " + what);
        }
        EXPECT_EQ(onDisk_.Bytes(), before);
    }
};

TEST_F(BadStore, NoSqliteFile) {
    onDisk_.Write("SELECT a FROM t\n" + std::string(2000, 'x'));
    ExpectRefused("no SQLite file; name another file");
}

TEST_F(BadStore, EmptyFileAndForeignDatabase) {
    constexpr const char* kForeign =
        "no store of qzsql; name another file, or make a store with: qzsql catalog init STORE";
    onDisk_.Write("");
    ExpectRefused(kForeign);
    RunSql("CREATE TABLE section (id, parent, name)");
    ExpectRefused(kForeign);
}

TEST_F(BadStore, AnotherVersion) {
    RunSql("PRAGMA user_version = 2");
    ExpectRefused("a store of version 2, while this qzsql reads version 1; use the qzsql that wrote it");
}

TEST_F(BadStore, CutOff) {
    SetNumber(1);
    const auto whole = onDisk_.Bytes();
    for (const std::size_t size : {whole.size() - 1, whole.size() - 4096, std::size_t{4096}}) {
        onDisk_.Write(whole.substr(0, size));
        ExpectRefused("damaged or cut off; put a sound copy in its place");
    }
}

TEST_F(BadStore, ItsTablesAreMissing) {
    RunSql("DROP TABLE setting");
    ExpectRefused("damaged or of another make: no such table: setting");
}

// A read meets it in the middle of the work.
TEST_F(BadStore, ADamagedPageIsRememberedByAReadAndRefusedToAWrite) {
    constexpr const char* kDamaged = ": damaged or cut off; put a sound copy in its place";
    SetNumber(1);
    auto bytes = onDisk_.Bytes();
    for (std::size_t page = 1; page < bytes.size() / 4096; ++page)
        bytes.replace(page * 4096, 4096, std::string(4096, '\xFF'));
    onDisk_.Write(bytes);
    SettingsStore store(Path(), Use::Read);
    {
        const QZOpenSection root(store, u"root", 0);
        EXPECT_EQ(store.ReadInt(u"key", 7), 7);
    }
    EXPECT_EQ(WhatItThrows([&] { store.ThrowIfFailed(); }), Path() + kDamaged);
    EXPECT_EQ(WhatItThrows([&] { SettingsStore(Path(), Use::Write); }), Path() + kDamaged);
    EXPECT_EQ(onDisk_.Bytes(), bytes);
}

TEST_F(BadStore, NoFile) {
    EXPECT_EQ(WhatItThrows([] { SettingsStore("", Use::Read); }), ": the name of the file is empty; name a file");
    EXPECT_EQ(WhatItThrows([] { SettingsStore("/dev/null", Use::Read); }),
              "/dev/null: a device or a pipe; name a file");
    const std::string pipe = Path() + ".pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const Use use : {Use::Read, Use::Write}) {
        EXPECT_EQ(WhatItThrows([&] { SettingsStore(pipe, use); }), pipe + ": a device or a pipe; name a file");
    }
    unlink(pipe.c_str());
}

TEST(SettingsStorePaths, NamesWithAMeaningToSqliteAreFiles) {
    for (const char* name : {":memory:", "file:x?mode=memory"}) {
        EXPECT_NE(WhatItThrows([&] { SettingsStore(name, Use::Write); }), "nothing") << name;
    }
}

}  // namespace
}  // namespace qzsql
