#pragma once

#include <utility>

namespace platform {

class Model;

/// Whoever shows a model. It must outlive its registration with the model.
class Watcher {
 public:
  virtual ~Watcher() = default;
  /// `model` was clean and has changed. Called at once, inside the write: only take note of it
  /// here.
  virtual void Touched(Model& model) = 0;
};

/// State of something on the screen. Logic reads and writes it directly; a write that changes
/// something marks it dirty and tells the watcher, once until the watcher has cleaned it. A model
/// without a watcher works just the same.
class Model {
 public:
  Model() = default;
  virtual ~Model() = default;
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  /// The one watcher, or nullptr. A dirty model tells a new watcher at once.
  void set_watcher(Watcher* watcher) {
    watcher_ = watcher;
    if (dirty_ && watcher_) watcher_->Touched(*this);
  }
  [[nodiscard]] bool dirty() const { return dirty_; }
  void Clean() { dirty_ = false; }

 protected:
  void Touch() {
    if (dirty_) return;
    dirty_ = true;
    if (watcher_) watcher_->Touched(*this);
  }
  /// Stores `value` and touches the model where it differs from `field`. True when it did.
  template <typename T, typename V>
  bool Set(T& field, V&& value) {
    if (field == value) return false;
    field = std::forward<V>(value);
    Touch();
    return true;
  }

 private:
  Watcher* watcher_ = nullptr;
  bool dirty_ = true;
};

}  // namespace platform
