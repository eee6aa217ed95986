// SPDX-License-Identifier: MIT
#include "desktop/files/FileSearch.h"

#include "desktop/files/FileReader.h"
#include "desktop/files/FileStore.h"
#include "desktop/files/TextView.h"
#include "text/Encoding.h"
#include "text/LineEnds.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

// Bytes at the beginning of a file that tell whether it is a text.
constexpr std::size_t probedBytes = 8'192;

QString message(const char* text) {
  return QCoreApplication::translate("desktop::FileSearcher", text);
}

bool isBinary(std::string_view bytes) {
  return !quorvane::MarkedEncoding(bytes) && bytes.substr(0, probedBytes).find('\0') != std::string_view::npos;
}

// One line for a list: what stands around the match, without the indentation.
QString excerpt(std::u16string_view line, int unit) {
  constexpr int before = 100;
  constexpr int longest = 300;
  const std::size_t text = std::min(line.find_first_not_of(u" \t"), static_cast<std::size_t>(unit));
  const bool isCut = static_cast<std::size_t>(unit) > text + before;
  const std::size_t from = isCut ? static_cast<std::size_t>(unit) - before : text;
  QString shown = QString::fromUtf16(line.data() + from, static_cast<qsizetype>(std::min<std::size_t>(
                                                             line.size() - from, static_cast<std::size_t>(longest))));
  if (isCut && shown.front().isLowSurrogate())
    shown.remove(0, 1);
  if (from + longest < line.size()) {
    if (shown.back().isHighSurrogate())
      shown.chop(1);
    shown += u'…';
  }
  for (QChar& c : shown) {
    if (!c.isPrint() && !c.isSurrogate())
      c = u' ';
  }
  return isCut ? u'…' + shown : shown;
}

} // namespace

QRegularExpression fileNamePattern(const QString& wildcard) {
  // A folder in it makes it one that matches nothing, which nobody would be told.
  const QString pattern =
      wildcard.contains(u'/') ? QStringLiteral("[") : QRegularExpression::wildcardToRegularExpression(wildcard);
  return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

// The file that is being searched.
struct FileSearcher::File {
  QString name;
  int line = 0; // from 1, of the one searched last
  int matches = 0;
  bool isTooComplex = false;
};

FileSearcher::FileSearcher(const FileSearch& search, std::stop_token stop, OnMatch onMatch, OnProgress onProgress)
    : search_(search), stop_(std::move(stop)), onMatch_(std::move(onMatch)), onProgress_(std::move(onProgress)),
      matcher_(search.terms) {
  for (const QString& pattern : search.patterns)
    patterns_.push_back(fileNamePattern(pattern));
  for (const OpenText& open : search.open) {
    if (const std::optional<FileId> id = fileIdOf(open.fileName))
      openById_.emplace(*id, &open);
  }
}

const FileSearchOutcome& FileSearcher::run() {
  if (matcher_.isEmpty())
    return outcome_;
  FileWalk walk(search_.subfolders, stop_);
  walk.walk(search_.folder, [this](const QString& path, const FileId& id) { return searchFile(path, id); });
  for (const auto& [path, reason] : walk.unreadable())
    addTrouble(path, message("could not be read: %1").arg(reason));
  outcome_.stopped = stop_.stop_requested();
  if (goesOn())
    searchUnvisited();
  return outcome_;
}

bool FileSearcher::wants(const QString& path) const {
  const QString name = QFileInfo(path).fileName();
  return patterns_.empty() || std::ranges::any_of(patterns_, [&name](const QRegularExpression& each) {
           return each.isValid() && each.match(name).hasMatch();
         });
}

bool FileSearcher::searchFile(const QString& path, const FileId& id) {
  outcome_.stopped = stop_.stop_requested();
  if (outcome_.stopped || !wants(path))
    return !outcome_.stopped;
  const auto open = openById_.find(id);
  if (open == openById_.end())
    searchBytes(path, path);
  else if (open->second->text)
    searchText(open->second->fileName, *open->second->text);
  else
    searchBytes(open->second->fileName, path);
  return goesOn();
}

// Texts in the folder that have no file there yet, or not any more.
void FileSearcher::searchUnvisited() {
  const QString folder = QDir::cleanPath(search_.folder);
  for (const OpenText& open : search_.open) {
    const QString itsFolder = QFileInfo(open.fileName).path();
    const bool isInside = itsFolder == folder ||
                          (search_.subfolders && itsFolder.startsWith(folder.endsWith(u'/') ? folder : folder + u'/'));
    if (goesOn() && open.text && isInside && wants(open.fileName) && !QFileInfo::exists(open.fileName))
      searchText(open.fileName, *open.text);
  }
}

void FileSearcher::searchText(const QString& fileName, const TextSnapshot& text) {
  File file{fileName};
  bool more = true;
  text.forEachLine([&](std::u16string_view line, quorvane::TLineEnd) { more = more && searchLine(file, line); });
  endFile(file);
}

void FileSearcher::searchBytes(const QString& fileName, const QString& path) {
  if (stampOf(path).size > largestSearchedFile) {
    addTrouble(fileName, message("is over %1 MB and was not searched").arg(largestSearchedFile >> 20));
    return;
  }
  const FileContents contents = readFile(path);
  if (!contents.error.isEmpty()) {
    addTrouble(fileName, message("could not be read: %1").arg(contents.error));
    return;
  }
  if (isBinary(contents.view()))
    return;
  const quorvane::TDecodedText decoded = quorvane::Decode(contents.view());
  File file{fileName};
  for (const quorvane::TLine& line : quorvane::TLines(decoded.Text)) {
    if (!searchLine(file, line.Text))
      break;
  }
  endFile(file);
}

// False when the search ends here.
bool FileSearcher::searchLine(File& file, std::u16string_view line) {
  ++file.line;
  const QString text = borrowedText(line);
  int unit = 0; // of the match before, and its column
  int column = 1;
  const bool whole = matcher_.forEach(text, [&](const LineMatch& match) {
    ++file.matches;
    column = search_.column(text, unit, column, match.start);
    unit = match.start;
    onMatch_({file.name, file.line, column, match.start, match.length, excerpt(line, match.start)});
    outcome_.isFull = ++outcome_.matches >= mostFileMatches;
    outcome_.stopped = stop_.stop_requested();
    return goesOn();
  });
  file.isTooComplex = file.isTooComplex || !whole;
  outcome_.stopped = stop_.stop_requested();
  return goesOn();
}

void FileSearcher::addTrouble(const QString& path, const QString& reason) {
  ++outcome_.troubleCount;
  if (outcome_.troubles.size() < mostFileTroubles)
    outcome_.troubles.push_back({path, reason});
}

void FileSearcher::endFile(const File& file) {
  ++outcome_.files;
  outcome_.withMatch += file.matches > 0;
  if (file.isTooComplex)
    addTrouble(file.name, message("has lines that the pattern is too complex for"));
  onProgress_(outcome_);
}

} // namespace desktop
