#pragma once

#include "engine/service/http_head.h"

#include <optional>

// Programs on this machine may ask the engine; pages that its user's browser shows may not. They reach it all
// the same: by a form or script of another site, or by a name that its owner points at 127.0.0.1.
namespace fennick::engine {

// The HTTP status to refuse a request to this `port` with, from what a page cannot forge: 403 unless "Host"
// names this machine and "Origin", if there is one, is the engine's own; 415 for a POST that is not of type
// application/json, the only kind other sites could send without asking first (Fetch standard, 2.2.2).
std::optional<int> refusalOf(const HttpHead &head, quint16 port);

} // namespace fennick::engine
