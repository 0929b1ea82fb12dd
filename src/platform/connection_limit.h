#pragma once

#include <QtGlobal>

namespace fennick {

// Cuts every TCP connection of this process to the remote port over which more than so many bytes have come;
// whoever uses it sees it closed by the other side. For what the network library takes in without telling
// anybody: it reads the head of an answer to its end however long it is, and over plain HTTP does not even
// let itself be stopped meanwhile. Safe beside any use of the connections on other threads.
void cutConnectionsBeyond(quint16 remotePort, qint64 receivedBytes);

} // namespace fennick
