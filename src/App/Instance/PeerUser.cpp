#include "PeerUser.h"

#include <QLocalSocket>
#include <sys/socket.h>
#include <unistd.h>

namespace PeerUser {

bool isThisUser(const QLocalSocket& socket)
{
    const qintptr descriptor = socket.socketDescriptor();
    if (descriptor < 0)
        return false;
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (::getsockopt(static_cast<int>(descriptor), SOL_SOCKET, SO_PEERCRED, &credentials, &size) !=
        0)
        return false;
    return size == sizeof credentials && credentials.uid == ::getuid();
}

} // namespace PeerUser
