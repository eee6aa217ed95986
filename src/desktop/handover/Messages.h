// SPDX-License-Identifier: MIT
// What a process that was asked to open files and the running editor tell each other.
//
// Each message is a JSON object on a line of its own. The editor begins, with the greeting; the caller answers with its
// request; the editor tells that it has opened the files and, to a caller that waits, that they have been closed. A
// caller that gets no greeting has not asked for anything yet, so it may go another way.
#pragma once

#include "desktop/files/FileArgument.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace desktop {

// Of one message, its line end included. A command line fits in, whatever has to be escaped.
inline constexpr qsizetype longestMessage = qsizetype{32} << 20;

// What the caller was asked to do on its command line, and what its desktop gave it on the way.
struct OpenRequest {
  QString folder;    // absolute; names of files count from it
  QStringList files; // as on the command line, FILE or FILE:LINE or FILE:LINE:COLUMN
  std::optional<CaretPlace> caret;
  bool wait = false;          // the caller wants to know when the files have been closed
  QByteArray startupId;       // of the start, under X11; or empty
  QByteArray activationToken; // with which a window may come to the front, under Wayland; or empty
};

// What the editor tells; what is not set was not in the message.
struct EditorNews {
  bool greets = false; // in a version that this program understands
  bool opened = false;
  bool closed = false;
  QStringList problems; // why files could not be opened, one sentence each
};

// One line each, its end included.
QByteArray greetingLine();
QByteArray requestLine(const OpenRequest& request);
QByteArray openedLine(const QStringList& problems);
QByteArray closedLine();

// Nothing if the line is no request of this version.
std::optional<OpenRequest> requestOf(const QByteArray& line);
// Nothing but defaults if the line cannot be understood.
EditorNews newsOf(const QByteArray& line);

} // namespace desktop
