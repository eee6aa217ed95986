// SPDX-License-Identifier: MIT
// The proxy: the add-in's presence in one editor window of the host.
#pragma once

#include "analysis/QVLiteParse.h"
#include "platform/Actions.h"
#include "platform/Canvas.h"
#include "platform/Control.h"
#include "platform/Message.h"
#include "platform/ota/Editor.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <shared_mutex>
#include <span>
#include <string>

namespace quorvane {

class IQVPasInfo;

// Which colour marked cells get.
enum class TQVCellColor { Paren, Block };

// Which edge of its line a text position is turned into.
enum class TQVCellEdge { Top, Bottom };

// Steps in between the edit control of one editor window and the host: it takes over the control's window procedure,
// lets the host paint, and then paints on top the bracket pair at the caret, the numbers of position markers and, when
// so configured, line numbers in the host's gutter. It also keeps the latest outline of the unit shown.
//
// A proxy is a component of its editor form, named like its class, and lives and dies with the form. Register attaches
// one to every open editor window; the unit's stop removes them all, each putting the control's window procedure back.
// The proxy paints nothing of its own while its window does not hold the host's top view or the file there is not
// Pascal.
//
// It may be destroyed while its form is half destroyed, so what belongs to the form is held by guarded pointers, and
// the destructor asserts nothing. A broken contract elsewhere (no control, no view, wrong owner) is an EAssertionFailed
// that names the unit QVEditorProxy. Main thread only, but for GetPasInfo.
//
// The class is cut over several files by concern: QVEditorProxy.cpp (attaching, registry, outline, markers),
// QVEditorMessages.cpp (the window procedure), QVEditorPaint.cpp (the paint pass, and the underline),
// QVEditorGeometry.cpp (the control's state, and pixels) and QVEditorTemplates.cpp (the expansion of templates).
class TQVEditorProxy final : public QObject {
  Q_OBJECT
public:
  // Attaches to the editor form `owner`, which owns the proxy. EAssertionFailed when `owner` is no form of class
  // "TEditWindow", or lacks its control "Editor" or its list "ActionList1".
  explicit TQVEditorProxy(QObject* owner);
  // Puts the window procedure back if the form still has its control.
  ~TQVEditorProxy() override;

  // Gives every open editor window a proxy. It does not look for an earlier one: it is called once, when the package
  // registers.
  static void InjectExistingProxies();
  // Frees the proxy of every open editor window.
  static void RemoveExistingProxies();
  // The proxy of `form`, which must be an editor form; null when it has none.
  static TQVEditorProxy* GetProxy(const QWidget& form);
  // The proxy of the form that shows `view`, which must not be null; null when the view's window has no form or no
  // proxy.
  static TQVEditorProxy* GetProxy(const std::shared_ptr<platform::IOTAEditView>& view);

  // The host's top view if it is in this proxy's form, else null. All drawing and geometry goes through it.
  std::shared_ptr<platform::IOTAEditView> GetOTAEditView() const;

  // Keeps `info` as the latest outline and shows it in the form's toolbar; the form must hold the top view.
  void SetPasInfo(std::shared_ptr<IQVPasInfo> info);
  // The latest outline, or null before the first. Safe from any thread.
  std::shared_ptr<IQVPasInfo> GetPasInfo() const;

  // Gives the hot-key action the shortcut OptMarkerHotkey. Called again when the settings have changed.
  void RedefineHotKey();
  // Asks the control for a paint later.
  void Invalidate();
  // The frame of a drawing from outside: the first asks for a paint, the second does nothing.
  void StartDraw();
  void EndDraw();
  // Puts the control's own window procedure back. The proxy may live on.
  void UnSubclass();

  // Drops a marker at the caret, which needs a view, or picks the last one up, and repaints the control at once.
  void DropMarker();
  void PickupMarker();

  // Types the text of the template `name`, which stands before the caret, in its place, as one step of undo. The caret
  // goes to the first caret stop of the text, markers to the further ones, so that each PickupMarker goes on to the
  // next. False, with nothing changed, when templates are off, when there is no such template or it may not expand
  // there, when the text can only be read, and while another expansion is typing.
  bool DoTemplate(const QString& name);

  // The control's published state; see the host for what each value means. Each needs the control. Caret column and
  // line count from 1 and are 16 bits wide: what is beyond is narrowed by a cast.
  std::int16_t EdGetCaretX() const;
  std::int16_t EdGetCaretY() const;
  int EdGetTopLine() const;       // first visible line, from 1
  int EdGetLinesInWindow() const; // visible lines, a partly visible last one included
  int EdGetLineCount() const;
  int EdGetCharXIndex() const;
  int EdGetCursorAttribute() const;
  std::int64_t EdGetBlockBegin() const; // this and the next three: positions packed in the host's own way
  std::int64_t EdGetBlockAfter() const;
  std::int64_t EdGetSearchBegin() const;
  std::int64_t EdGetSearchAfter() const;
  int EdGetBorderStyle() const;
  QString EdGetLineText() const;    // of the caret's line
  QString EdGetHotlinkText() const; // under the mouse
  int EdGetLeft() const;
  int EdGetTop() const;
  int EdGetWidth() const;
  int EdGetHeight() const;
  int EdGetTag() const;
  int EdGetHelpContext() const;
  int EdGetCursor() const;
  QString EdGetName() const;
  QString EdGetHint() const;
  QString EdGetHelpKeyword() const;

  // CanvasOverride if set, else the control's canvas; null when there is neither.
  platform::TCanvas* EdGetCanvas() const;
  // Height of a line: the client height over the lines shown less one, since the last is taken as partly visible.
  // EDivByZero when just one line is shown.
  int EdGetLineHeight() const;
  // Width of a column: the text area's width spread over the visible columns. Needs a view; EDivByZero when there is no
  // column.
  int EdGetColWidth() const;
  // Where a text position stands, in pixels of the control's client area; outside of it for what is scrolled away.
  QPoint CursorToPixel(const platform::TOTAEditPos& position, TQVCellEdge edge) const;
  QPoint CursorToPixel(const platform::TOTACharPos& position, TQVCellEdge edge) const;
  // The caret as an index into the buffer's text, from 0. Needs a view.
  std::int32_t LinearPos() const;

  // Colours the ground of `cells` cells (at least 1) from a position on, keeping the characters.
  void DrawCursorBlockAt(const platform::TOTAEditPos& position, int cells, TQVCellColor color);
  void DrawCursorBlockAt(const platform::TOTACharPos& position, int cells, TQVCellColor color);
  // Writes a marker's number at a line and a character column, both from 1: in the lower half of the line, starting
  // half a column left of the marked character.
  void PaintSubInteger(int line, int column, int value);
  // Writes the numbers of the visible lines into the host's gutter, the caret's in bold.
  void PaintLineNumbers(platform::TCanvas& canvas);

  // Underlines `length` cells from a character position on (index from 0, line from 1) with a red zigzag, on the
  // control as it is shown now. Needs control, canvas and view. The next paint of the host removes it.
  void UnderlineErr(std::int32_t column, std::int32_t line, std::int32_t length);

  // When set, every drawing goes here instead of to the control's canvas. Not owned.
  platform::TCanvas* CanvasOverride = nullptr;
  // Chooses among the four block colours; 0 at the start of every paint pass.
  int BlockColorIndex = 0;

private:
  // What assertions name, in all files of the class.
  static constexpr const char* kUnit = "QVEditorProxy";

  // The control, or null when it is gone or half destroyed; Control() requires it.
  platform::TWinControl* FindControl() const;
  platform::TWinControl& Control() const;
  // EdGetCanvas, which must not be null.
  platform::TCanvas& DrawingCanvas() const;
  QVariant Published(const char* name) const;
  template <class TOrdinal> TOrdinal PublishedOrdinal(const char* name) const;
  QString PublishedText(const char* name) const;

  // The window procedure, and the handlers, one a row of the message table. After some messages the line numbers are
  // polled.
  void EditorWndProc(platform::TMessage& message);
  void Dispatch(platform::TMessage& message);
  void EditorWMDestroy(platform::TMessage& message);
  void EditorRefresh(platform::TMessage& message);
  void EditorWMPaint(platform::TMessage& message);
  void EditorWMEraseBkgnd(platform::TMessage& message);
  void EditorWMKeyDown(platform::TMessage& message);
  void EditorWMChar(platform::TMessage& message);
  void EditorCNKeyDown(platform::TMessage& message);
  // Gives the message to the host. False when the proxy has been destroyed meanwhile and must not be touched any more.
  bool Forward(platform::TMessage& message);
  void RepaintControl();

  // Whether `character`, just typed, was the key of a template that has expanded now. With a selection it never is.
  bool ExpandsTemplate(char32_t character);
  QString NameBeforeCaret() const;
  // Drops a marker at each of the caret stops of the template that has been typed.
  void MarkStops(platform::IOTAEditView& view, std::span<const platform::TOTAEditPos> stops);

  // A new action of the list, which the host's menu for searching shows.
  platform::TAction* AddSearchAction(const QString& text, platform::TShortCut shortCut, std::function<void()> execute);
  // Lets the markers of a file that has been opened again follow its text. Throws nothing.
  void ResumeMarkers();
  void DrawActionExecute();
  void PaintEditor(platform::TMessage& message);
  void PaintStructure(platform::IOTAEditBuffer& buffer);
  void PaintMarkers(platform::IOTAEditView& view);
  void PaintBlock(std::span<const TQVLitePasElement> elements);
  void ProcessRounds(std::span<const TQVLitePasElement> elements);
  platform::TOTAEditPos ToEditPos(platform::TOTACharPos position) const;

  QPointer<platform::TActionList> ActionList;
  QPointer<QObject> EditControl;
  QPointer<QWidget> EditorForm;
  // Whether the hot key has painted since the last paint of the host or refresh.
  bool Painted = false;
  std::unique_ptr<TQVLitePasParser> LiteParser;
  std::shared_ptr<IQVPasInfo> PasInfo; // guarded by PasInfoLock
  mutable std::shared_mutex PasInfoLock;
  QPointer<platform::TAction> DrawAction;
  QPointer<platform::TAction> DropMarkerAction;
  QPointer<platform::TAction> PickupMarkerAction;
  // Whether a template may expand: not while one does, so that what it types starts no other.
  bool TemplateGuard = true;
  platform::TWndMethod OldEditorWndProc;

  // Of the pass under way. The caret is read once, since a text may hold a hundred thousand pairs of brackets; both its
  // values are 16 bits wide.
  bool painting_ = false;
  platform::TOTAEditPos caret_;
  std::string source_; // kept between passes for its capacity
};

} // namespace quorvane
