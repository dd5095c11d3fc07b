#pragma once

namespace office {

/// Serves the terminal at the other end of standard input and output until that ends. Gives the
/// exit status.
[[nodiscard]] int Run();

}  // namespace office
