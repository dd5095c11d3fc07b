#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace services {

/// Who is on a channel, by name. Knows kMost people of up to kLongest bytes; more are left out.
class IrcPeople {
 public:
  static constexpr std::size_t kMost = 2000, kLongest = 64;

  /// A piece of the server's list: names between blanks, each with the signs of its rights.
  void Listed(std::string_view names);
  /// The list is whole and takes the place of what was known.
  void ListEnds();
  void Add(std::string_view nick) { Put(known_, nick); }
  void Remove(std::string_view nick);
  void Rename(std::string_view from, std::string_view to);
  void Clear();

  /// UTF-8.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  using Names = std::map<std::string, std::string>;  // as shown, by folded name

  static void Put(Names& names, std::string_view nick);

  Names known_, coming_;
};

}  // namespace services
