// SPDX-License-Identifier: MIT
// A sorted list of names, made to be filled quickly.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane {

// Names, none twice, each with a line, sorted as Pascal tells them apart: without regard to case. ASCII letters are
// folded to lower case and the rest is ordered by code. A name that is added again keeps its first line.
//
// The list is filled first and read then: names are only put down one behind the other, and sorted when they are asked
// for. So the first reading after an addition writes too, and is for one thread alone; Settle does it beforehand.
class TQVNameList {
public:
  using value_type = std::pair<std::string_view, std::int32_t>; // the views live until the next addition
  using const_iterator = std::vector<value_type>::const_iterator;

  TQVNameList() = default;
  TQVNameList(const TQVNameList&) = delete;
  TQVNameList& operator=(const TQVNameList&) = delete;

  void Add(std::string_view name, std::int32_t line);

  // Sorts what has been added, so that reading does not write any more.
  void Settle() const;

  const_iterator begin() const { return Names().begin(); }
  const_iterator end() const { return Names().end(); }
  std::size_t size() const { return Names().size(); }
  bool empty() const { return FAdded.empty(); }
  bool contains(std::string_view name) const;

  friend bool operator==(const TQVNameList& left, const TQVNameList& right) { return left.Names() == right.Names(); }

private:
  struct TAdded {
    std::size_t Start = 0; // in FChars and FFolded
    std::size_t Length = 0;
    std::int32_t Line = 0;
  };

  const std::vector<value_type>& Names() const {
    Settle();
    return FNames;
  }

  std::string_view FoldedOf(const value_type& name) const {
    return {FFolded.data() + (name.first.data() - FChars.data()), name.first.size()};
  }

  std::string FChars;  // of all names
  std::string FFolded; // the same in lower case, so that comparing is quick
  std::vector<TAdded> FAdded;
  mutable std::vector<value_type> FNames;
  mutable bool FIsSettled = true;
};

} // namespace quorvane
