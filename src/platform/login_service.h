#pragma once

// The program's registration to be started when the user logs in.
namespace fennick::LoginService {

enum class Status { notRegistered, enabled };

Status status();

// Both return whether it worked.
[[nodiscard]] bool registerApplication();
[[nodiscard]] bool unregisterApplication();

} // namespace fennick::LoginService
