#include "SkinKit/Platform/Process.h"

#include <pthread.h>

#include <csignal>

namespace SkinKit::Process {

void nameThread(const char* name)
{
    ::pthread_setname_np(::pthread_self(), name);
}

void reportFileSizeLimit()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

}
