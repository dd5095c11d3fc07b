#pragma once

#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>
#include <vector>

#include "office/running.h"

namespace office {

/// The way to the desktops of the running offices. Makes this process' own component context with
/// the first use.
class Connection {
 public:
  Connection() = default;
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  using Desktop = com::sun::star::uno::Reference<com::sun::star::frame::XDesktop>;

  /// To the running offices that let us in, the oldest first. Throws what the component library
  /// throws.
  [[nodiscard]] std::vector<Desktop> Open();

 private:
  [[nodiscard]] Desktop OpenTo(const Running& running);
  [[nodiscard]] Desktop Resolve(const std::string& pipe);

  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context_;
};

}  // namespace office
