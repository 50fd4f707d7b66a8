#include "SkinKit/Platform/Process.h"

#include <pthread.h>
#include <signal.h>

namespace SkinKit::Process {
namespace {

volatile sig_atomic_t held = 0;

}

void nameThread(const char* name)
{
    ::pthread_setname_np(::pthread_self(), name);
}

void reportFileSizeLimit()
{
    ::signal(SIGXFSZ, SIG_IGN);
}

void reportBrokenPipes()
{
    ::signal(SIGPIPE, SIG_IGN);
}

void holdInterrupts()
{
    struct ::sigaction action{};
    action.sa_handler = [](int signal) {
        held = signal;
        ::signal(SIGINT, SIG_DFL);
        ::signal(SIGTERM, SIG_DFL);
    };
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

int heldInterrupt()
{
    return held;
}

void endByHeldInterrupt()
{
    ::raise(held);
}

}
