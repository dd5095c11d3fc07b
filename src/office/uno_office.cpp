#include "office/uno_office.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <exception>

#include "office/connection.h"

namespace office {
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using rtl::OUString;
using Value = calc::Office::Value;

/// Runs `step`; false when it says so or throws.
template <typename Step>
bool Try(Step step) {
  try {
    return step();
  } catch (const css::uno::Exception&) {
  } catch (const std::exception&) {
  }
  return false;
}

OUString TextOf(std::string_view utf8) {
  return OUString(utf8.data(), static_cast<sal_Int32>(utf8.size()), RTL_TEXTENCODING_UTF8);
}

std::string Utf8Of(const OUString& text) {
  const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return std::string(bytes.getStr(), static_cast<std::size_t>(bytes.getLength()));
}

Any AnyOf(const Value& value) {
  if (const auto* const number = std::get_if<double>(&value)) return Any(*number);
  // No value at all would show as an error in the cell; a text without a letter empties it.
  const auto* const text = std::get_if<std::string>(&value);
  return Any(text ? TextOf(*text) : OUString());
}

Value ValueOf(const Any& any) {
  double number = 0;
  OUString text;
  if (any >>= number) return number;
  if ((any >>= text) && !text.isEmpty()) return Utf8Of(text);
  return {};
}

Sequence<Sequence<Any>> RowsOf(const calc::Block& block, std::span<const Value> values) {
  Sequence<Sequence<Any>> rows(block.rows);
  auto value = values.begin();
  for (Sequence<Any>& row : std::span(rows.getArray(), static_cast<std::size_t>(block.rows))) {
    row.realloc(block.cols);
    for (Any& cell : std::span(row.getArray(), static_cast<std::size_t>(block.cols)))
      cell = AnyOf(*value++);
  }
  return rows;
}

}  // namespace

struct UnoOffice::State {
  [[nodiscard]] bool Find(const OUString& wanted, const Reference<css::uno::XInterface>& component);
  [[nodiscard]] bool Search(const OUString& wanted);
  [[nodiscard]] bool SearchIn(const Connection::Desktop& desktop, const OUString& wanted);
  /// Whether the chosen sheet is still the one that was asked for. Throws when it is gone.
  [[nodiscard]] bool Stands() const { return sheet.is() && named->getName() == name; }
  [[nodiscard]] Reference<css::sheet::XCellRangeData> Data(const calc::Block& block) const;
  [[nodiscard]] bool SetColor(std::span<const calc::Block> blocks, const char* property,
                              base::Color color) const;
  void Forget();

  Connection connection;
  std::vector<Connection::Desktop> desktops;
  Reference<css::sheet::XSpreadsheetDocument> document;
  Reference<css::sheet::XSpreadsheet> sheet;
  Reference<css::container::XNamed> named;
  OUString name;
  Reference<css::document::XUndoManager> undo;  // between Begin and End
};

bool UnoOffice::State::Find(const OUString& wanted,
                            const Reference<css::uno::XInterface>& component) {
  const Reference<css::sheet::XSpreadsheetDocument> candidate(component, UNO_QUERY);
  if (!candidate.is()) return false;
  const Reference<css::container::XNameAccess> sheets(candidate->getSheets(), UNO_QUERY_THROW);
  if (!sheets->hasByName(wanted)) return false;
  sheet.set(sheets->getByName(wanted), UNO_QUERY_THROW);
  named.set(sheet, UNO_QUERY_THROW);
  name = named->getName();
  document = candidate;
  return true;
}

bool UnoOffice::State::Search(const OUString& wanted) {
  return std::ranges::any_of(desktops, [&](const Connection::Desktop& desktop) {
    return Try([&] { return SearchIn(desktop, wanted); });
  });
}

bool UnoOffice::State::SearchIn(const Connection::Desktop& desktop, const OUString& wanted) {
  if (Try([&] { return Find(wanted, desktop->getCurrentComponent()); })) return true;
  const auto components = desktop->getComponents()->createEnumeration();
  while (components->hasMoreElements()) {
    const Reference<css::uno::XInterface> component(components->nextElement(), UNO_QUERY);
    // One that is closing just now doesn't hide those after it.
    if (Try([&] { return Find(wanted, component); })) return true;
  }
  return false;
}

Reference<css::sheet::XCellRangeData> UnoOffice::State::Data(const calc::Block& block) const {
  return Reference<css::sheet::XCellRangeData>(
      sheet->getCellRangeByPosition(block.col - 1, block.row - 1, block.col + block.cols - 2,
                                    block.row + block.rows - 2),
      UNO_QUERY_THROW);
}

bool UnoOffice::State::SetColor(std::span<const calc::Block> blocks, const char* property,
                                base::Color color) const {
  if (!Stands()) return false;
  const Reference<css::lang::XMultiServiceFactory> factory(document, UNO_QUERY_THROW);
  const Reference<css::sheet::XSheetCellRangeContainer> ranges(
      factory->createInstance("com.sun.star.sheet.SheetCellRanges"), UNO_QUERY_THROW);
  const Reference<css::sheet::XCellRangeAddressable> whole(sheet, UNO_QUERY_THROW);
  const sal_Int16 number = whole->getRangeAddress().Sheet;
  Sequence<css::table::CellRangeAddress> addresses(static_cast<sal_Int32>(blocks.size()));
  css::table::CellRangeAddress* address = addresses.getArray();
  for (const calc::Block& block : blocks)
    *address++ =
        css::table::CellRangeAddress(number, block.col - 1, block.row - 1,
                                     block.col + block.cols - 2, block.row + block.rows - 2);
  ranges->addRangeAddresses(addresses, false);
  const Reference<css::beans::XPropertySet> properties(ranges, UNO_QUERY_THROW);
  properties->setPropertyValue(OUString::createFromAscii(property),
                               Any(static_cast<sal_Int32>(base::RgbOf(color))));
  return true;
}

void UnoOffice::State::Forget() {
  undo.clear();
  named.clear();
  sheet.clear();
  document.clear();
}

UnoOffice::UnoOffice() : state_(std::make_unique<State>()) {}
UnoOffice::~UnoOffice() { Disconnect(); }

bool UnoOffice::Connect() {
  Disconnect();
  return Try([this] {
    state_->desktops = state_->connection.Open();
    return !state_->desktops.empty();
  });
}

bool UnoOffice::connected() {
  // What one call throws may be the document's end or the office's: it is the next that tells.
  std::erase_if(state_->desktops, [](const Connection::Desktop& desktop) {
    return !Try([&] {
      desktop->getCurrentFrame();
      return true;
    });
  });
  return !state_->desktops.empty();
}

void UnoOffice::Disconnect() {
  state_->Forget();
  state_->desktops.clear();
}

bool UnoOffice::Choose(std::string_view sheet) {
  state_->Forget();
  return Try([&] { return state_->Search(TextOf(sheet)); });
}

bool UnoOffice::Read(const calc::Block& block, std::vector<Value>& values) {
  values.clear();
  return Try([&] {
    if (!state_->Stands()) return false;
    const Sequence<Sequence<Any>> rows = state_->Data(block)->getDataArray();
    for (const Sequence<Any>& row : rows)
      for (const Any& cell : row) values.push_back(ValueOf(cell));
    return true;
  });
}

bool UnoOffice::Write(const calc::Block& block, std::span<const Value> values) {
  return Try([&] {
    if (!state_->Stands()) return false;
    state_->Data(block)->setDataArray(RowsOf(block, values));
    return true;
  });
}

bool UnoOffice::WriteFormula(int row, int col, std::string_view formula) {
  return Try([&] {
    if (!state_->Stands()) return false;
    state_->sheet->getCellByPosition(col - 1, row - 1)->setFormula(TextOf(formula));
    return true;
  });
}

bool UnoOffice::SetFore(std::span<const calc::Block> blocks, base::Color color) {
  return Try([&] { return state_->SetColor(blocks, "CharColor", color); });
}

bool UnoOffice::SetBack(std::span<const calc::Block> blocks, base::Color color) {
  return Try([&] { return state_->SetColor(blocks, "CellBackColor", color); });
}

void UnoOffice::Begin() {
  (void)Try([this] {
    const Reference<css::document::XUndoManagerSupplier> supplier(state_->document,
                                                                  UNO_QUERY_THROW);
    const auto undo = supplier->getUndoManager();
    undo->enterUndoContext("Cotirama");
    state_->undo = undo;
    return true;
  });
}

void UnoOffice::End() {
  (void)Try([this] {
    if (state_->undo.is()) state_->undo->leaveUndoContext();
    return true;
  });
  state_->undo.clear();
}

}  // namespace office
