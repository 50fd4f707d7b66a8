#include "SkinKit/Platform/Process.h"

#include <csignal>

namespace SkinKit::Process {

void reportFileSizeLimit()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

}
