#pragma once

#include <memory>

#include "calc/office.h"

namespace office {

/// An office of this user on this machine, through its component interface. Rows and columns
/// outside of the sheet fail. Nothing that it throws leaves this class; a call to an office that
/// stands still comes back when that goes on or ends.
class UnoOffice : public calc::Office {
 public:
  UnoOffice();
  ~UnoOffice() override;

  bool Connect() override;
  [[nodiscard]] bool connected() override;
  void Disconnect() override;
  bool Choose(std::string_view sheet) override;
  bool Read(const calc::Block& block, std::vector<Value>& values) override;
  bool Write(const calc::Block& block, std::span<const Value> values) override;
  bool WriteFormula(int row, int col, std::string_view formula) override;
  bool SetFore(std::span<const calc::Block> blocks, base::Color color) override;
  bool SetBack(std::span<const calc::Block> blocks, base::Color color) override;
  void Begin() override;
  void End() override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace office
