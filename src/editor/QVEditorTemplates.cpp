// SPDX-License-Identifier: MIT
// Templates of the proxy: the name before the caret gives way to the text that it stands for.
#include "editor/QVEditorProxy.h"

#include "editor/QVMarkerStack.h"
#include "editor/QVTemplateSource.h"
#include "host/QVLog.h"
#include "host/QVStatManager.h"
#include "settings/model/QVOptions.h"
#include "text/ServedText.h"

#include <QList>
#include <QScopedValueRollback>

#include <algorithm>

namespace quorvane {

namespace {

// What the text of a template marks, besides what it types.
constexpr char32_t kCaretStop = U'|';
constexpr char32_t kBackspace = U'~';

bool IsNameCharacter(QChar character) {
  const char16_t code = character.unicode();
  return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') || (code >= u'0' && code <= u'9') ||
         code == u'_';
}

// The run of name characters at the end of `text`.
QString NameAtEnd(QStringView text) {
  qsizetype start = text.size();
  while (start > 0 && IsNameCharacter(text[start - 1]))
    --start;
  return text.sliced(start).toString();
}

// Whether the host types `character`; it ignores all other control characters.
bool IsTyped(char32_t character) {
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return !control || character == U'\r' || character == U'\t';
}

void TypeCharacter(platform::IOTAEditPosition& position, char32_t character) {
  if (!IsTyped(character))
    return;
  position.InsertCharacter(character);
  if (QVEditorStatClient)
    QVEditorStatClient->CharTyped(character);
}

// Types `text` in place of the `replaced` characters before the caret, all as one step of undo, and returns the caret
// stops in the order of the text.
std::vector<platform::TOTAEditPos> TypeTemplate(platform::IOTAEditView& view, int replaced, const QList<uint>& text) {
  const auto group = view.GetBuffer()->BeginUndoGroup();
  const auto position = view.GetPosition();
  position->BackspaceDelete(replaced);
  std::vector<platform::TOTAEditPos> stops;
  stops.reserve(static_cast<std::size_t>(std::ranges::count(text, kCaretStop)));
  for (const char32_t character : text) {
    if (character == kBackspace)
      position->BackspaceDelete(1);
    else if (character != kCaretStop)
      TypeCharacter(*position, character);
    const int row = position->GetRow();
    const int column = position->GetColumn();
    if (character == kCaretStop)
      stops.push_back({static_cast<std::int16_t>(column), row});
    Log(QStringLiteral("Editor Template Position: Row %1 Col %2").arg(row).arg(column));
  }
  return stops;
}

} // namespace

bool TQVEditorProxy::DoTemplate(const QString& name) {
  const auto view = GetOTAEditView();
  if (!view || !QVTemplateSource)
    return false;
  const QString text = QVTemplateSource->GetTemplateText(name.toLower(), view);
  if (!OptEnableTemplates || !TemplateGuard || text.isEmpty() || view->GetBuffer()->GetIsReadOnly())
    return false;
  const QScopedValueRollback guard(TemplateGuard, false);
  Painted = false;
  const auto stops = TypeTemplate(*view, static_cast<int>(name.size()), text.toUcs4());
  MarkStops(*view, stops);
  if (!stops.empty() && QVMarkerStackManager) {
    QVMarkerStackManager->ReverseTop(static_cast<std::int32_t>(stops.size()));
    PickupMarker();
  }
  return true;
}

// In a group, which holds the caret, so that the control need not follow it from stop to stop.
void TQVEditorProxy::MarkStops(platform::IOTAEditView& view, std::span<const platform::TOTAEditPos> stops) {
  if (stops.empty())
    return;
  const auto group = view.GetBuffer()->BeginUndoGroup();
  const auto position = view.GetPosition();
  for (const platform::TOTAEditPos& stop : stops) {
    position->Move(stop.Line, stop.Col);
    DropMarker();
  }
}

bool TQVEditorProxy::ExpandsTemplate(char32_t character) {
  if (!OptEnableTemplates || character != static_cast<unsigned char>(OptTemplateKey) || !QVTemplateSource)
    return false;
  const QString name = NameBeforeCaret();
  return !name.isEmpty() && QVTemplateSource->IsTemplateName(name) && DoTemplate(name);
}

// Taken from the control, whose caret is exact on lines of any length.
QString TQVEditorProxy::NameBeforeCaret() const {
  if (EdGetBlockBegin() != EdGetBlockAfter())
    return {};
  const QString line = EdGetLineText();
  const std::u16string_view units(reinterpret_cast<const char16_t*>(line.utf16()),
                                  static_cast<std::size_t>(line.size()));
  const std::size_t caret = UnitOfCharacter(units, static_cast<std::size_t>(std::max(EdGetCharXIndex(), 0)));
  return NameAtEnd(QStringView(line).first(static_cast<qsizetype>(caret)));
}

} // namespace quorvane
