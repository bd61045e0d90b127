#include "online/guardedparse.h"

#include <gumbo.h>

#include <QDeadlineTimer>
#include <QThread>

#include <csignal>
#include <memory>
#include <mutex>
#include <pthread.h>
#include <setjmp.h>

namespace guardedparse {

namespace {

// Deep enough for one call a level on the deepest tree that 512 MB of
// nodes make; only the pages that the parse touches are ever committed.
constexpr uint StackBytes = 256u * 1024 * 1024;
constexpr int GiveUpSignal = SIGUSR2;

// A parse under way, shared by its thread, the allocator and the signal
// handler. The flags are read in the handler.
struct Guard {
    GumboOptions options; // the caller's, with the allocator below in its place
    void* (*allocate)(void*, size_t) = nullptr;
    void (*deallocate)(void*, void*) = nullptr;
    void* userdata = nullptr;
    size_t allocated = 0;
    size_t memory = 0;
    sigjmp_buf start;
    volatile sig_atomic_t allocating = 0; // in the caller's allocator: no jump from there
    volatile sig_atomic_t giveUp = 0;     // the deadline passed while allocating

    std::mutex mutex; // over the two below, so that a signal never meets a thread that has gone
    pthread_t thread{};
    bool parsing = false;
};

thread_local Guard* t_guard __attribute__((tls_model("initial-exec"))) = nullptr;

void onGiveUpSignal(int)
{
    Guard* guard = t_guard;
    if (!guard)
        return;
    if (guard->allocating) {
        guard->giveUp = 1; // the allocator jumps once it is out of malloc
        return;
    }
    siglongjmp(guard->start, 1);
}

void installHandler()
{
    static std::once_flag installed;
    std::call_once(installed, [] {
        struct sigaction action {};
        action.sa_handler = onGiveUpSignal;
        sigemptyset(&action.sa_mask);
        sigaction(GiveUpSignal, &action, nullptr);
    });
}

void* allocate(void* userdata, size_t bytes)
{
    auto* guard = static_cast<Guard*>(userdata);
    guard->allocating = 1;
    void* block = guard->allocate(guard->userdata, bytes);
    guard->allocated += bytes;
    guard->allocating = 0;
    if (guard->giveUp || guard->allocated > guard->memory)
        siglongjmp(guard->start, 1);
    return block;
}

void deallocate(void* userdata, void* block)
{
    auto* guard = static_cast<Guard*>(userdata);
    guard->allocating = 1;
    guard->deallocate(guard->userdata, block);
    guard->allocating = 0;
}

// On the parse's thread. Nothing with a destructor lives in this frame: the
// jump back to its start skips nothing.
GumboOutput* parseOnThisThread(Guard* guard, const QByteArray* utf8)
{
    GumboOutput* volatile output = nullptr;
    if (sigsetjmp(guard->start, 1) == 0)
        output = gumbo_parse_with_options(&guard->options, utf8->constData(), size_t(utf8->size()));
    // A signal from now on waits till the thread has ended, and then is gone.
    sigset_t giveUp;
    sigemptyset(&giveUp);
    sigaddset(&giveUp, GiveUpSignal);
    pthread_sigmask(SIG_BLOCK, &giveUp, nullptr);
    t_guard = nullptr;
    return output;
}

} // namespace

GumboOutput* parse(const GumboOptions& options, const QByteArray& utf8, int milliseconds, size_t memory)
{
    installHandler();
    Guard guard;
    guard.options = options;
    guard.allocate = options.allocator;
    guard.deallocate = options.deallocator;
    guard.userdata = options.userdata;
    guard.memory = memory;
    guard.options.allocator = allocate;
    guard.options.deallocator = deallocate;
    guard.options.userdata = &guard;

    GumboOutput* output = nullptr;
    std::unique_ptr<QThread> thread(QThread::create([&guard, &output, &utf8] {
        {
            const std::lock_guard lock(guard.mutex);
            guard.thread = pthread_self();
            guard.parsing = true;
        }
        t_guard = &guard;
        output = parseOnThisThread(&guard, &utf8);
        const std::lock_guard lock(guard.mutex);
        guard.parsing = false;
    }));
    thread->setStackSize(StackBytes);
    thread->start();
    const QDeadlineTimer deadline(milliseconds);
    if (!thread->wait(deadline)) {
        // Until the parse has stopped: a signal that came too early, before
        // the parse began, is simply repeated.
        do {
            const std::lock_guard lock(guard.mutex);
            if (guard.parsing)
                pthread_kill(guard.thread, GiveUpSignal);
        } while (!thread->wait(QDeadlineTimer(20)));
    }
    return output;
}

} // namespace guardedparse
