#pragma once

namespace load {

// Each runs in a process of its own, for a bounded time, prints what it has measured beside what
// there is to reach, and says whether it could be measured. Each needs the application object.

/// 20,000 quotes a second from a process of its own, board visible.
[[nodiscard]] bool Steady(double seconds, int more_instruments);
/// A whole market and its first quotes wait in the socket.
[[nodiscard]] bool Burst();
/// Millions of quotes leave the resident memory as it is.
[[nodiscard]] bool Memory(double million_quotes);
/// Before the login, and connected to a market in which nothing moves.
[[nodiscard]] bool Idle(double seconds);
/// From the start of the process to the painted login window.
[[nodiscard]] bool Start(int runs);

}  // namespace load
