#include "qt/ports/qt_socket.h"

#include <algorithm>
#include <sys/ioctl.h>
#include <utility>

#include <QNetworkProxy>
#include <QSignalBlocker>

#include "qt/ports/socket_error_text.h"

namespace qt {
namespace {

constexpr qint64 kReadBuffer = 1 << 20;
constexpr std::size_t kRefillBelow = 1U << 20;
constexpr qint64 kMostUnsent = 1 << 20;
// With fewer bytes in hand a handler takes all, so they must be all that have come.
constexpr std::size_t kTakenWhole = 8192;

bool MoreInSystem(const QTcpSocket& socket) {
  int waiting = 0;
  return ioctl(static_cast<int>(socket.socketDescriptor()), FIONREAD, &waiting) == 0 && waiting > 0;
}

}  // namespace

QtSocket::QtSocket(Events events, const Resolver& resolve)
    : events_(std::move(events)), resolve_(resolve), pump_([this] { return RaiseNext(); }) {
  socket_.setReadBufferSize(kReadBuffer);
  socket_.setProxy(QNetworkProxy::NoProxy);
  QObject::connect(&socket_, &QTcpSocket::connected, &pump_, [this] { OnConnected(); });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &pump_, [this] {
    data_due_ = true;
    pump_.Queue();
  });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &pump_,
                   [this](QAbstractSocket::SocketError error) { OnError(error); });
}

QtSocket::~QtSocket() { Close(); }

bool QtSocket::Connect() {
  if (state_ != State::closed) return false;
  Close();
  state_ = State::connecting;
  const Endpoint to =
      resolve_ ? resolve_(host_, port_) : Endpoint{QString::fromStdString(host_), port_};
  socket_.connectToHost(to.host, to.port);
  return true;
}

void QtSocket::Close() {
  const QSignalBlocker silent(socket_);
  socket_.abort();
  state_ = State::closed;
  buffer_.clear();
  taken_ = 0;
  connected_due_ = data_due_ = false;
  end_due_ = End::none;
}

bool QtSocket::Send(std::string_view bytes) {
  if (state_ != State::connected || socket_.state() != QAbstractSocket::ConnectedState)
    return false;
  const auto size = static_cast<qint64>(bytes.size());
  if (socket_.bytesToWrite() + size > kMostUnsent) return false;
  return socket_.write(bytes.data(), size) == size;
}

std::string_view QtSocket::pending() const { return std::string_view(buffer_).substr(taken_); }

std::string QtSocket::Read(std::size_t count) {
  std::string bytes(pending().substr(0, count));
  taken_ += bytes.size();
  if (taken_ == buffer_.size()) {
    buffer_.clear();
    taken_ = 0;
  }
  return bytes;
}

void QtSocket::OnConnected() {
  socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
  connected_due_ = true;
  pump_.Queue();
}

void QtSocket::OnError(QAbstractSocket::SocketError error) {
  if (end_due_ != End::none) return;
  error_ = error;
  // Until the connection stands nobody can have closed it: such an answer is a failure.
  const bool was_connected = connected_due_ || state_ == State::connected;
  const bool by_peer = error == QAbstractSocket::RemoteHostClosedError && was_connected;
  end_due_ = by_peer ? End::closed : End::error;
  data_due_ = data_due_ || socket_.bytesAvailable() > 0 || !pending().empty();
  pump_.Queue();
}

void QtSocket::Fill() {
  const qint64 available = socket_.bytesAvailable();
  const std::size_t unread = buffer_.size() - taken_;
  if (available <= 0 || unread >= kRefillBelow) return;
  // What has been taken is cut off once it is most of the buffer, so that bytes move seldom.
  if (taken_ > unread) {
    buffer_.erase(0, taken_);
    taken_ = 0;
  }
  const std::size_t end = buffer_.size();
  buffer_.resize(end + static_cast<std::size_t>(available));
  const qint64 got = socket_.read(buffer_.data() + end, available);
  buffer_.resize(end + static_cast<std::size_t>(std::max<qint64>(got, 0)));
}

bool QtSocket::RaiseNext() {
  if (connected_due_) {
    connected_due_ = false;
    state_ = State::connected;
    if (events_.connected) events_.connected();
  } else if (data_due_) {
    RaiseData();
  } else if (end_due_ != End::none) {
    RaiseEnd();
  }
  return connected_due_ || data_due_ || end_due_ != End::none;
}

void QtSocket::RaiseData() {
  Fill();
  // Before the call: what arrives while the handler waits in a box makes it due again.
  data_due_ = false;
  const std::size_t before = pending().size();
  if (before == 0) return;
  // `readyRead` follows and makes it due again.
  if (before <= kTakenWhole && end_due_ == End::none && MoreInSystem(socket_)) return;
  if (events_.data) events_.data();
  const std::size_t after = pending().size();
  if (after < before && (after > 0 || socket_.bytesAvailable() > 0)) data_due_ = true;
}

void QtSocket::RaiseEnd() {
  const bool closed = end_due_ == End::closed;
  Close();
  if (closed) {
    if (events_.closed) events_.closed();
  } else {
    state_ = State::error;
    if (events_.error) events_.error(SocketErrorText(error_, host_, port_));
  }
}

}  // namespace qt
