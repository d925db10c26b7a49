#include "QZParserSQL/platform/Guid.h"

#include <pthread.h>
#include <sys/random.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <string>

namespace {

constexpr std::size_t kGuidBytes = 16;
// The most that the system gives in one call.
constexpr std::size_t kBatchBytes = 256;

using GuidBytes = std::array<unsigned char, kGuidBytes>;

// How many forks lie between the first process and this one: a child must not use up its parent's bytes again.
std::atomic<unsigned> forks{0};

// One thread's supply of random bytes.
class RandomBatch {
 public:
    // False when the system gives none.
    bool Take(GuidBytes& guid) {
        if ((m_Used == kBatchBytes || m_Forks != forks) && !Refill()) return false;
        for (unsigned char& byte : guid) byte = m_Bytes[m_Used++];
        return true;
    }

 private:
    bool Refill() {
        if (getentropy(m_Bytes.data(), kBatchBytes) != 0) return false;
        m_Used = 0;
        m_Forks = forks;
        return true;
    }

    std::array<unsigned char, kBatchBytes> m_Bytes{};
    std::size_t m_Used = kBatchBytes;
    unsigned m_Forks = 0;
};

// The bits that say "random" (version 4) and "RFC 4122".
void MarkVersion(GuidBytes& guid) {
    guid[6] = static_cast<unsigned char>((guid[6] & 0x0F) | 0x40);
    guid[8] = static_cast<unsigned char>((guid[8] & 0x3F) | 0x80);
}

CString InBraces(const GuidBytes& guid) {
    constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    std::u16string text = u"{";
    for (std::size_t i = 0; i < kGuidBytes; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += u'-';
        text += kDigits[guid[i] >> 4];
        text += kDigits[guid[i] & 0x0F];
    }
    return text += u'}';
}

}  // namespace

CString QZNewGuid() {
    static const bool watched = pthread_atfork(nullptr, nullptr, [] { ++forks; }) == 0;
    thread_local RandomBatch batch;
    GuidBytes guid;
    if (!watched || !batch.Take(guid)) return {};
    MarkVersion(guid);
    return InBraces(guid);
}
