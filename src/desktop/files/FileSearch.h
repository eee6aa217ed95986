// SPDX-License-Identifier: MIT
// Searching the files of a folder, line by line.
#pragma once

#include "desktop/files/FileWalk.h"
#include "desktop/files/TextMatcher.h"
#include "desktop/files/TextSnapshot.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <stop_token>
#include <string_view>
#include <vector>

namespace desktop {

// A file that is open in the editor.
struct OpenText {
  QString fileName;                 // the name under which its matches are told
  std::optional<TextSnapshot> text; // what is searched in place of the file on disk
};

// What to search, and for what.
struct FileSearch {
  SearchTerms terms;
  QString folder;       // absolute
  QStringList patterns; // wildcards for the names of files, in any case; none of them means every file
  bool subfolders = true;
  std::vector<OpenText> open;
  // The column of the screen at which `unit` of a line stands, going on from unit `from`, which stands at `column` and
  // not behind it. Called in the thread of the search.
  std::function<int(QStringView line, qsizetype from, int column, qsizetype unit)> column;
};

// A match in a file.
struct FileMatch {
  QString fileName; // absolute
  int line = 1;     // from 1
  int column = 1;   // as FileSearch::column has it
  int unit = 0;     // UTF-16 unit of the line, from 0
  int length = 0;   // units
  QString text;     // the line, or the part of it around the match
};

// Files over this size, and files with a NUL in their first part that are no UTF-16, are not searched.
inline constexpr std::int64_t largestSearchedFile = std::int64_t{64} << 20;
// After so many matches a search ends.
inline constexpr int mostFileMatches = 10'000;
// So many of the files that were not searched are named.
inline constexpr std::size_t mostFileTroubles = 100;

// A file or folder that was not searched, or not all of it.
struct FileTrouble {
  QString path;
  QString reason; // for the user
};

// What has come of a search, or of the part of it that is done.
struct FileSearchOutcome {
  int files = 0;     // that were searched
  int withMatch = 0; // files
  int matches = 0;
  bool isFull = false; // there may be more matches than the most that are told
  bool stopped = false;
  std::vector<FileTrouble> troubles; // the first ones
  int troubleCount = 0;              // of all
};

// The pattern for all of a file's name that a wildcard of FileSearch::patterns stands for. It is not valid if the
// wildcard is none, and if it names folders.
QRegularExpression fileNamePattern(const QString& wildcard);

// One search. Any thread, one at a time.
class FileSearcher {
public:
  using OnMatch = std::function<void(FileMatch&& match)>;
  using OnProgress = std::function<void(const FileSearchOutcome& sofar)>;

  // `onMatch` is called for each match, `onProgress` often and with a file at the latest; both in run(). `search` must
  // outlive this. Wildcards that are none are the names of no files.
  FileSearcher(const FileSearch& search, std::stop_token stop, OnMatch onMatch, OnProgress onProgress);

  // Searches until it is through, stopped or full.
  const FileSearchOutcome& run();

private:
  struct File;

  bool wants(const QString& path) const;
  bool goesOn() const { return !outcome_.isFull && !outcome_.stopped; }
  bool searchFile(const QString& path, const FileId& id);
  void searchUnvisited();
  void searchText(const QString& fileName, const TextSnapshot& text);
  void searchBytes(const QString& fileName, const QString& path);
  bool searchLine(File& file, std::u16string_view line);
  void endFile(const File& file);
  void addTrouble(const QString& path, const QString& reason);

  const FileSearch& search_;
  std::stop_token stop_;
  OnMatch onMatch_;
  OnProgress onProgress_;
  TextMatcher matcher_;
  std::vector<QRegularExpression> patterns_;
  std::map<FileId, const OpenText*> openById_;
  FileSearchOutcome outcome_;
};

} // namespace desktop
