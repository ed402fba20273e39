#pragma once

#include <QString>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/// The first interface of a virtual bus that nobody else on this computer has: where none is named,
/// all programs share one. Empty when there is no port for it.
inline QString ownVirtualBus()
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *const any = reinterpret_cast<sockaddr *>(&address);
    socklen_t size = sizeof(address);
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool isFree = bind(socket, any, size) == 0 && getsockname(socket, any, &size) == 0;
    close(socket);
    return isFree ? QStringLiteral("tcp://127.0.0.1:%1/can0").arg(ntohs(address.sin_port))
                  : QString();
}
