#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/control.h"

namespace platform {

/// The file or directory at `path`, absolute and in UTF-8, as an address ("file:///...").
[[nodiscard]] std::string FileAddress(std::string_view path);

/// A page of the web. The screen sets the hooks and tells what happens; while it isn't there, the
/// address last wanted waits for it. It shows http, https and the files directly inside `files`
/// only, whatever a page asks for.
class WebView : public Control {
 public:
  // The screen's.
  std::function<void(const std::string& address)> do_navigate;
  std::function<void()> do_back, do_forward, do_refresh, do_stop;
  // The window's.
  std::function<void()> on_busy;  // loading has begun or ended, or the location has changed

  /// An address that isn't allowed changes nothing.
  void Navigate(std::string_view address);
  void Back() { Run(do_back); }
  void Forward() { Run(do_forward); }
  void Refresh() { Run(do_refresh); }
  void Stop() { Run(do_stop); }

  /// The address last asked for, or "".
  [[nodiscard]] const std::string& address() const { return address_; }
  /// A directory, as "file:///.../": the one whose files may be shown. "" is none.
  [[nodiscard]] const std::string& files() const { return files_; }
  void set_files(std::string_view address) { files_ = address; }
  [[nodiscard]] bool Allows(std::string_view address) const;

  // From the screen.
  /// The page's title, and where it is: outside text.
  [[nodiscard]] const std::string& location_name() const { return location_name_; }
  [[nodiscard]] const std::string& location() const { return location_; }
  [[nodiscard]] bool busy() const { return busy_; }
  void Tell(bool busy, std::string_view location_name, std::string_view location);

 private:
  static void Run(const std::function<void()>& hook) {
    if (hook) hook();
  }

  std::string address_, files_, location_name_, location_;
  bool busy_ = false;
};

}  // namespace platform
