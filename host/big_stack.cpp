#include "host/big_stack.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace qzsql {

namespace {

// Some 100,000 levels; more would mostly let hostile texts take memory, for a level costs more of that elsewhere.
constexpr std::size_t kLargest = std::size_t{128} << 20;
constexpr std::size_t kSmallest = std::size_t{8} << 20;

class ThreadAttributes {
 public:
    explicit ThreadAttributes(std::size_t stackSize) {
        pthread_attr_init(&attributes_);
        pthread_attr_setstacksize(&attributes_, stackSize);
    }
    ~ThreadAttributes() { pthread_attr_destroy(&attributes_); }
    ThreadAttributes(const ThreadAttributes&) = delete;
    ThreadAttributes& operator=(const ThreadAttributes&) = delete;

    const pthread_attr_t* Get() const { return &attributes_; }

 private:
    pthread_attr_t attributes_;
};

}  // namespace

// Where address space is limited, a smaller stack still serves all but the deepest texts.
BigStackThread::BigStackThread(std::function<void()> work) : work_(std::move(work)) {
    int error = EAGAIN;
    for (auto size = kLargest; error == EAGAIN && size >= kSmallest; size /= 2) {
        error = pthread_create(&thread_, ThreadAttributes(size).Get(), Run, this);
    }
    if (error != 0) throw std::system_error(error, std::generic_category(), "no thread");
}

BigStackThread::~BigStackThread() {
    if (!joined_) pthread_join(thread_, nullptr);
}

void BigStackThread::Join() {
    pthread_join(thread_, nullptr);
    joined_ = true;
    if (failure_) std::rethrow_exception(failure_);
}

void* BigStackThread::Run(void* self) {
    auto& thread = *static_cast<BigStackThread*>(self);
    try {
        thread.work_();
    } catch (...) {
        thread.failure_ = std::current_exception();
    }
    return nullptr;
}

}  // namespace qzsql
