#include "interruption.h"

#include <atomic>
#include <csignal>

namespace quillmarker::tool
{
namespace
{

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> noted = 0;
static_assert(std::atomic<int>::is_always_lock_free);  // or a handler could not set it

extern "C" void NoteSignal(int number) { noted = number; }

void Install(void (*handler)(int), unsigned flags)
{
    for (const int number : kSignals)
    {
        struct sigaction old
        {
        };
        ::sigaction(number, nullptr, &old);
        if (old.sa_handler == SIG_IGN)  // as nohup asks
            continue;
        struct sigaction action
        {
        };
        action.sa_handler = handler;
        action.sa_flags = static_cast<int>(flags);
        ::sigaction(number, &action, nullptr);
    }
}

}  // namespace

Interruption::Interruption() { Install(NoteSignal, SA_RESETHAND); }
Interruption::~Interruption() { Install(SIG_DFL, 0); }
int Interruption::Signal() { return noted; }

}  // namespace quillmarker::tool
