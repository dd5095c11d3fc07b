#include "office/connection.h"

#include <chrono>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>
#include <thread>

namespace office {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;

constexpr int kTries = 10;
constexpr std::chrono::milliseconds kBetween(100);

Reference<css::uno::XComponentContext> MakeContext() {
  // Without the office's own types the first call to it ends this process.
  rtl::Bootstrap::set("URE_MORE_TYPES", "file://" COTIRAMA_OFFICE "/types/offapi.rdb");
  return cppu::defaultBootstrap_InitialComponentContext();
}

}  // namespace

Connection::~Connection() {
  try {
    const Reference<css::lang::XComponent> context(context_, UNO_QUERY);
    if (context.is()) context->dispose();
  } catch (...) {
  }
}

std::vector<Connection::Desktop> Connection::Open() {
  std::vector<Desktop> desktops;
  const std::vector<Running> offices = FindRunning();
  if (!offices.empty() && !context_.is()) context_ = MakeContext();
  for (const Running& running : offices)
    if (Desktop desktop = OpenTo(running); desktop.is()) desktops.push_back(desktop);
  return desktops;
}

Connection::Desktop Connection::OpenTo(const Running& running) {
  // Always the same name for the same office, which so listens at one pipe however often we come.
  const std::string pipe = "cotirama-" + std::to_string(running.pid);
  if (Desktop desktop = Resolve(pipe); desktop.is()) return desktop;
  if (!OpenPipe(running, pipe)) return {};
  for (int i = 0; i < kTries; ++i) {
    if (Desktop desktop = Resolve(pipe); desktop.is()) return desktop;
    std::this_thread::sleep_for(kBetween);
  }
  return {};
}

Connection::Desktop Connection::Resolve(const std::string& pipe) {
  // Any user may make a pipe of that name; to speak with a stranger's would be to trust him.
  if (!OwnsPipe(pipe)) return {};
  const auto url = "uno:pipe,name=" + pipe + ";urp;StarOffice.ComponentContext";
  try {
    const Reference<css::uno::XComponentContext> office(
        css::bridge::UnoUrlResolver::create(context_)->resolve(
            rtl::OUString::createFromAscii(url.c_str())),
        UNO_QUERY);
    if (!office.is()) return {};
    return Desktop(office->getServiceManager()->createInstanceWithContext(
                       "com.sun.star.frame.Desktop", office),
                   UNO_QUERY);
  } catch (const css::connection::NoConnectException&) {
    return {};
  }
}

}  // namespace office
