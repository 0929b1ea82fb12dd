#pragma once

#include <QtGlobal>

namespace fennick {

// Cuts every TCP connection of this process to the remote port over which more than this many bytes were
// received; to its user the connection looks closed by the other side. This limits what the network library
// reads without reporting it: it reads the head of an answer to its end, however long that is, and over plain
// HTTP cannot be stopped meanwhile. Safe while other threads use the connections.
void cutConnectionsBeyond(quint16 remotePort, qint64 receivedBytes);

} // namespace fennick
