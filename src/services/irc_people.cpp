#include "services/irc_people.h"

#include <algorithm>
#include <utility>

#include "services/irc_message.h"

namespace services {

void IrcPeople::Listed(std::string_view names) {
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find(' '));
    names.remove_prefix(std::min(name.size() + 1, names.size()));
    const auto signs = name.find_first_not_of("@+%&~!");
    if (signs != std::string_view::npos) Put(coming_, name.substr(signs));
  }
}

void IrcPeople::ListEnds() {
  if (!coming_.empty()) known_ = std::exchange(coming_, {});
}

void IrcPeople::Remove(std::string_view nick) { known_.erase(IrcFolded(nick.substr(0, kLongest))); }

void IrcPeople::Rename(std::string_view from, std::string_view to) {
  if (known_.erase(IrcFolded(from.substr(0, kLongest))) > 0) Add(to);
}

void IrcPeople::Clear() {
  known_.clear();
  coming_.clear();
}

std::vector<std::string> IrcPeople::names() const {
  std::vector<std::string> names;
  names.reserve(known_.size());
  for (const auto& [folded, shown] : known_) names.push_back(shown);
  return names;
}

void IrcPeople::Put(Names& names, std::string_view nick) {
  const std::string_view cut = nick.substr(0, kLongest);
  if (cut.empty() || names.size() >= kMost) return;
  names.insert_or_assign(IrcFolded(cut), IrcShown(cut));
}

}  // namespace services
