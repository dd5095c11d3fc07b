#include "support/fake_socket.h"

#include <utility>

namespace support {

FakeSocket::FakeSocket(Events events, std::vector<FakeSocket*>& alive)
    : events_(std::move(events)), alive_(alive) {
  alive_.push_back(this);
}

FakeSocket::~FakeSocket() { std::erase(alive_, this); }

void FakeSocket::Accept() {
  Raise([this] {
    if (state_ != State::connecting) return;
    state_ = State::connected;
    if (events_.connected) events_.connected();
  });
}

void FakeSocket::Arrive(std::string_view bytes) {
  if (state_ == State::connected) {
    // At once even while a handler runs: whoever keeps a view of the pending bytes is found out.
    pending_.append(bytes);
    Raise([this] { RaiseData(); });
    return;
  }
  Raise([this, later = std::string(bytes)] {
    if (state_ != State::connected) return;
    pending_.append(later);
    RaiseData();
  });
}

void FakeSocket::PeerClose() {
  Raise([this] {
    if (state_ != State::connected) return;
    state_ = State::closed;
    if (events_.closed) events_.closed();
  });
}

void FakeSocket::Fail(const std::string& text) {
  Raise([this, text] {
    if (state_ != State::connecting && state_ != State::connected) return;
    state_ = State::error;
    if (events_.error) events_.error(text);
  });
}

void FakeSocket::RaiseData() {
  while (state_ == State::connected && !pending_.empty() && events_.data) {
    const std::size_t before = pending_.size();
    events_.data();
    if (pending_.size() >= before) return;
  }
}

void FakeSocket::Raise(std::function<void()> event) {
  waiting_.push_back(std::move(event));
  if (in_handler_) return;
  in_handler_ = true;
  while (!waiting_.empty()) {
    const auto next = std::move(waiting_.front());
    waiting_.pop_front();
    next();
  }
  in_handler_ = false;
}

bool FakeSocket::Connect() {
  if (state_ != State::closed) return false;
  Close();
  --closes;
  ++connects;
  state_ = State::connecting;
  return true;
}

void FakeSocket::Close() {
  ++closes;
  if (close_hangs) return;
  state_ = State::closed;
  pending_.clear();
  waiting_.clear();
}

bool FakeSocket::Send(std::string_view bytes) {
  if (state_ != State::connected) return false;
  sent += bytes;
  writes.emplace_back(bytes);
  return true;
}

std::string FakeSocket::Read(std::size_t count) {
  std::string taken = pending_.substr(0, count);
  pending_.erase(0, count);
  return taken;
}

}  // namespace support
