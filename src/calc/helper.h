#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/batch.h"
#include "calc/lines.h"
#include "calc/office.h"

namespace calc {

/// The helper's end: takes the terminal's lines, does them to the office, and answers. Lines that
/// make no sense are ignored. A sheet that can't be written or read any more is given up with all
/// that was meant for it, and chosen anew at the next `Look`; a lost office is for the next
/// "attach" only. `office` outlives it.
class Helper {
 public:
  /// `send` writes bytes to the terminal.
  Helper(Office& office, std::function<void(std::string_view bytes)> send);

  /// Bytes of the terminal as they come, cut anywhere.
  void Receive(std::string_view bytes);
  /// Once a second while attached: tells what the user has changed in the sheet.
  void Look();
  [[nodiscard]] bool attached() const { return attached_; }

 private:
  void Take(std::string_view line);
  void Attach(int number, std::string sheet);
  void Detach();
  void Write();
  bool Choose();
  void GiveUpSheet();
  [[nodiscard]] bool ReadSheet();
  void Report();
  void Send();

  Office& office_;
  std::function<void(std::string_view bytes)> send_;
  LineReader reader_;
  bool attached_ = false;
  std::string name_;  // of the sheet
  int sheet_ = 0;     // number of the chosen one; 0 is none
  int choices_ = 0;
  Batch batch_;
  RowLine row_;
  std::vector<Value> known_, found_;  // row by row: what the terminal knows, and what is there
  std::string out_;
};

}  // namespace calc
