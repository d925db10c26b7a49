#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "QZParserSQL/model/CQZAliasInfo.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Guid.h"

namespace {

// From now on the system refuses random bytes to this process.
bool ForbidRandomBytes() {
    sock_filter rules[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_getrandom, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{sizeof rules / sizeof rules[0], rules};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

// How many GUIDs there are in what was fetched, counted by cutting the supply behind the first.
int GuidsInABatch() {
    if (QZNewGuid().IsEmpty() || !ForbidRandomBytes()) return -1;
    int count = 1;
    while (!QZNewGuid().IsEmpty()) ++count;
    return count;
}

TEST(Guid, HasTheBraceFormInCapitals) {
    const std::string form = "{hhhhhhhh-hhhh-4hhh-vhhh-hhhhhhhhhhhh}";
    for (int round = 0; round < 100; ++round) {
        const std::string guid = QZNewGuid().ToUtf8();
        ASSERT_EQ(guid.size(), form.size());
        for (std::size_t i = 0; i < form.size(); ++i) {
            const std::string allowed = form[i] == 'h'   ? "0123456789ABCDEF"
                                        : form[i] == 'v' ? "89AB"
                                                         : std::string(1, form[i]);
            EXPECT_NE(allowed.find(guid[i]), std::string::npos) << guid << " at " << i;
        }
    }
}

TEST(Guid, NeverComesTwice) {
    std::set<std::string> guids;
    for (int i = 0; i < 20000; ++i) guids.insert(QZNewGuid().ToUtf8());
    EXPECT_EQ(guids.size(), 20000U);
}

TEST(Guid, IsMadeOnAnyThread) {
    std::vector<std::vector<CString>> made(4, std::vector<CString>(1000));
    std::vector<std::thread> threads(made.size());
    for (std::size_t i = 0; i < made.size(); ++i) {
        threads[i] = std::thread([&guids = made[i]] {
            for (CString& guid : guids) guid = QZNewGuid();
        });
    }
    for (std::thread& thread : threads) thread.join();
    std::set<std::string> all;
    for (const auto& guids : made) {
        for (const CString& guid : guids) all.insert(guid.ToUtf8());
    }
    EXPECT_EQ(all.size(), 4000U);
}

TEST(Guid, IsAnotherInAChildProcess) {
    QZNewGuid();
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const std::string guid = QZNewGuid().ToUtf8();
        _exit(write(ends[1], guid.data(), guid.size()) == 38 ? 0 : 1);
    }
    char guid[38];
    ASSERT_EQ(read(ends[0], guid, sizeof guid), 38);
    EXPECT_NE(std::string(guid, sizeof guid), QZNewGuid().ToUtf8());
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    close(ends[0]);
    close(ends[1]);
}

TEST(GuidDeathTest, IsEmptyWhereTheSystemGivesNoRandomBytes) {
    EXPECT_EXIT(_exit(ForbidRandomBytes() && QZNewGuid().IsEmpty() ? 7 : 1), testing::ExitedWithCode(7), "");
}

// Without random bytes an object keeps the identity that it has, and a new one gets none.
bool ObjectsDoWithoutGuids() {
    CQZAliasInfo object;
    object.SetGUID(u"{old}");
    if (!ForbidRandomBytes()) return false;
    while (!QZNewGuid().IsEmpty()) continue;
    object.NewGUID();
    return object.GetGUID() == u"{old}" && CQZAliasInfo().GetGUID().IsEmpty();
}

TEST(GuidDeathTest, ObjectsKeepTheIdentityTheyHaveWithoutRandomBytes) {
    EXPECT_EXIT(_exit(ObjectsDoWithoutGuids() ? 7 : 1), testing::ExitedWithCode(7), "");
}

TEST(GuidDeathTest, TakesTheBytesOfSixteenInOneCall) {
    EXPECT_EXIT(_exit(GuidsInABatch()), testing::ExitedWithCode(16), "");
}

}  // namespace
