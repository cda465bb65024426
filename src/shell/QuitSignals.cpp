#include "shell/QuitSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int g_pipe[2] = {-1, -1};

void onSignal(int number)
{
    const int saved = errno;
    const char byte = char(number);
    [[maybe_unused]] const ssize_t written = ::write(g_pipe[1], &byte, 1);
    errno = saved;
}

const int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

} // namespace

QuitSignals::QuitSignals(QObject *parent) : QObject(parent)
{
    if (g_pipe[0] < 0 && ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_pipe) != 0)
        return;
    ::fcntl(g_pipe[1], F_SETFL, O_NONBLOCK);
    m_notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &QuitSignals::onPipeReadable);
    struct sigaction action {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int number : kSignals)
        ::sigaction(number, &action, nullptr);
}

QuitSignals::~QuitSignals()
{
    // From here on a signal ends the process at once, as it would have without us.
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    sigemptyset(&action.sa_mask);
    for (int number : kSignals)
        ::sigaction(number, &action, nullptr);
}

void QuitSignals::onPipeReadable()
{
    char byte = 0;
    if (::read(g_pipe[0], &byte, 1) == 1)
        emit quitRequested(int(byte));
}
