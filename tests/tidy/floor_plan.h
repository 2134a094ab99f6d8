// The floor plan: which folder may include which, and what of the system. It stands in tables of
// the README.md files, from the bottom up, and only there:
//
//   | Folder | What it is | May include | Of the system |
//
// Folders are named as in an #include. A name stands for that folder (or that header) alone; "down
// to" holds for all names behind it and brings along what those may include. "anything" is for
// tests. A row of `folder/*` is for all folders below that have no row of their own.
//
// Of the system: "nothing" (the plain part of the standard library), "this machine" (what only the
// machines of developers have to have: streams, files, threads), "Windows", "test library".
#pragma once

#include "tests/tidy/tree.h"

#include <optional>
#include <set>

namespace corvel::tidy {

struct Floor {
  std::string folder;           // from the root: "src/core", "tests/*"
  std::string place;            // of its row: "src/README.md:12"
  std::set<std::string> names;  // folders and headers from the root that its row names
  std::set<std::string> may;    // all that it may include besides itself
  bool mayAnything = false;
  bool mayWindows = false, mayMachine = false, mayTestLibrary = false;

  // Runs wherever the program runs, on the desk and on the oldest Windows.
  bool IsPure() const { return !mayWindows && !mayMachine && !mayTestLibrary; }
};

class FloorPlan {
 public:
  // What is wrong with the tables goes to `faults`.
  FloorPlan(const Tree& tree, Faults& faults);

  // The row that counts for a folder; nullptr for none.
  const Floor* Of(const std::string& folder) const;
  bool Allows(const Floor& floor, const std::string& header) const;

 private:
  std::vector<Floor> floors_;
};

// The table in which a folder has its row.
std::string TableOf(const std::string& folder);
// As in an #include: without "src/".
std::string NameOf(const std::string& path);

}  // namespace corvel::tidy
