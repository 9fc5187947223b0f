#pragma once

#include <QtGlobal>

class QLocalSocket;

// Whether the process at the other end of a connected local socket runs as
// this user, by the credentials the kernel recorded for it. A socket's file
// permissions say who may connect, but not who is listening on a name.
namespace PeerUser {

bool isThisUser(const QLocalSocket& socket);

} // namespace PeerUser
