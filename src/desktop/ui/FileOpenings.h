// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/FileLoader.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace desktop {

class Page;
class TEditWindow;
class Workspace;

// Opens files without holding up the work: small ones at once, large ones in a thread.
//
// While a large file is being opened, a row in the message bar of its window tells how far that is and stops it; a file
// that is there in a moment shows none. Its page comes to the front unless the user has gone on with something else
// meanwhile. A file that could not be opened, or was stopped, leaves everything as it was. Main thread only.
class FileOpenings : public QObject {
  Q_OBJECT

public:
  using Opened = std::function<void(Page* page)>;
  enum class Place { Front, Behind };

  // Files of fewer bytes are opened at once.
  static constexpr qint64 largeBytes = 2 << 20;
  // How long a file may take without a row that tells of it.
  static constexpr std::chrono::milliseconds quietTime{400};

  // Whether the file at `path` takes a while.
  static bool isLarge(const QString& path);

  explicit FileOpenings(Workspace& workspace);
  // Stops all of them.
  ~FileOpenings() override;

  // Opens the file at `path` in `window`, or goes to its page wherever it is open. `opened` is called with the page as
  // soon as there is one, if it comes to that. `place`: whether a large file may come to the front. Returns the page if
  // it is there already.
  Page* open(TEditWindow* window, const QString& path, const Opened& opened = {}, Place place = Place::Front);

  // The absolute paths of the files that are being opened in `window`, in the order of the calls.
  QStringList pending(const TEditWindow* window) const;
  bool isIdle() const { return openings_.empty(); }
  // Stops what is being opened in `window`.
  void stop(const TEditWindow* window);

Q_SIGNALS:
  // pending() is another.
  void changed();

private:
  struct Opening;
  using Openings = std::vector<std::unique_ptr<Opening>>;

  void begin(TEditWindow* window, const QString& path, const Opened& opened, Place place);
  Opening* find(const QString& path) const;
  void showProgress();
  void stop(const Opening* opening);
  // Takes the opening off the list, and its row away.
  std::unique_ptr<Opening> take(const Opening* opening);
  void finish(const Opening* opening, LoadResult result);
  Page* show(const Opening& opening, LoadResult result);

  Workspace& workspace_;
  QTimer timer_{this};
  Openings openings_;
  FileLoader loader_; // last: its threads end first
};

} // namespace desktop
