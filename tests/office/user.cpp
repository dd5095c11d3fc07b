// What the user does to the document that is open in the office, over a connection of his own:
// office-user undo | rename NAME | close | cell COLUMN ROW, which prints text and colours.

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "office/connection.h"

namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

unsigned Color(const Reference<css::beans::XPropertySet>& cell, const char* name) {
  sal_Int32 color = 0;
  cell->getPropertyValue(rtl::OUString::createFromAscii(name)) >>= color;
  return static_cast<unsigned>(color);
}

void Print(const Reference<css::table::XCell>& cell) {
  const Reference<css::text::XText> text(cell, UNO_QUERY_THROW);
  const Reference<css::beans::XPropertySet> properties(cell, UNO_QUERY_THROW);
  std::printf("%s/%x/%x", rtl::OUStringToOString(text->getString(), RTL_TEXTENCODING_UTF8).getStr(),
              Color(properties, "CharColor"), Color(properties, "CellBackColor"));
}

int Do(const std::string& what, char** arguments) {
  office::Connection connection;
  const auto desktops = connection.Open();
  if (desktops.empty()) return 2;
  const Reference<css::sheet::XSpreadsheetDocument> document(
      desktops.front()->getComponents()->createEnumeration()->nextElement(), UNO_QUERY_THROW);
  const Reference<css::container::XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
  const Reference<css::sheet::XSpreadsheet> sheet(sheets->getByIndex(1), UNO_QUERY_THROW);
  if (what == "rename")
    Reference<css::container::XNamed>(sheet, UNO_QUERY_THROW)
        ->setName(rtl::OUString::createFromAscii(arguments[0]));
  if (what == "cell")
    Print(sheet->getCellByPosition(std::atoi(arguments[0]) - 1, std::atoi(arguments[1]) - 1));
  if (what == "undo")
    Reference<css::document::XUndoManagerSupplier>(document, UNO_QUERY_THROW)
        ->getUndoManager()
        ->undo();
  if (what == "close") Reference<css::util::XCloseable>(document, UNO_QUERY_THROW)->close(true);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return argc < 2 ? 2 : Do(argv[1], argv + 2);
  } catch (const css::uno::Exception&) {
    return 1;
  }
}
