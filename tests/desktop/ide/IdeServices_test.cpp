// SPDX-License-Identifier: MIT
#include "desktop/ide/IdeFixture.h"

#include "desktop/files/FileStore.h"
#include "platform/Errors.h"

namespace desktop {
namespace {

using namespace platform;

using IdeServicesTest = IdeFixture;

template <class TInterface> std::shared_ptr<TInterface> offered() {
  return std::dynamic_pointer_cast<TInterface>(BorlandIDEServices());
}

TEST_F(IdeServicesTest, OffersTheServicesThatThisHostHas) {
  SetBorlandIDEServices(services);
  EXPECT_NE(offered<IOTAServices>(), nullptr);
  EXPECT_NE(offered<INTAServices>(), nullptr);
  EXPECT_NE(offered<IOTAActionServices>(), nullptr);
  EXPECT_NE(offered<IOTAEditorServices>(), nullptr);
  EXPECT_NE(offered<IOTAMessageServices>(), nullptr);
  EXPECT_NE(offered<IOTAModuleServices>(), nullptr);
  EXPECT_NE(offered<IOTASearchPathServices>(), nullptr);
  SetBorlandIDEServices(nullptr);
}

TEST_F(IdeServicesTest, OffersNoOtherServices) {
  SetBorlandIDEServices(services);
  EXPECT_EQ(offered<IOTADebuggerServices>(), nullptr);
  EXPECT_EQ(offered<IOTAKeyBindingServices>(), nullptr);
  EXPECT_EQ(offered<IOTAKeyboardServices>(), nullptr);
  EXPECT_EQ(offered<IOTAPackageServices>(), nullptr);
  EXPECT_EQ(offered<IOTAToDoServices>(), nullptr);
  EXPECT_EQ(offered<IOTAWizardServices>(), nullptr);
  SetBorlandIDEServices(nullptr);
}

TEST_F(IdeServicesTest, ShowsMessagesInTheTopWindow) {
  services->AddTitleMessage(QStringLiteral("Unit <Nowhere> was not found."));
  EXPECT_EQ(messages(), QStringList{QStringLiteral("Unit <Nowhere> was not found.")});
}

TEST_F(IdeServicesTest, GivesTheSearchPathOfTheMoment) {
  EXPECT_TRUE(services->GetSearchPath().empty());
  workspace.searchPath().setFolders({{QStringLiteral("/a"), true}, {QStringLiteral("/b"), false}});
  EXPECT_EQ(services->GetSearchPath(),
            (std::vector<TOTASearchFolder>{{QStringLiteral("/a"), true}, {QStringLiteral("/b"), false}}));
}

TEST_F(IdeServicesTest, HasNoTopViewWithoutAPage) {
  EXPECT_EQ(services->GetTopView(), nullptr);
  EXPECT_EQ(services->GetTopBuffer(), nullptr);
  EXPECT_EQ(services->CurrentModule(), nullptr);
}

TEST_F(IdeServicesTest, GivesOneViewAndOneBufferForAPage) {
  const auto view = open("a");
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(services->GetTopView(), view);
  EXPECT_EQ(services->GetTopBuffer(), view->GetBuffer());
  EXPECT_EQ(services->GetTopBuffer()->GetTopView(), view);
}

TEST_F(IdeServicesTest, GivesEveryPageAViewOfItsOwn) {
  const auto first = open("a", "a.pas");
  const auto second = open("b", "b.pas");
  EXPECT_NE(first, second);
  window()->showPage(window()->pages().constFirst());
  EXPECT_EQ(services->GetTopView(), first);
}

TEST_F(IdeServicesTest, FollowsTheWindowActivatedLast) {
  const auto first = open("a", "a.pas");
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  const auto second = services->GetTopView();
  EXPECT_NE(second, first);
  EXPECT_EQ(second->GetEditWindow()->GetForm(), other);
  activate(window());
  EXPECT_EQ(services->GetTopView(), first);
}

TEST_F(IdeServicesTest, GivesOneWindowObjectForAllPagesOfAWindow) {
  const auto first = open("a", "a.pas");
  const auto second = open("b", "b.pas");
  EXPECT_EQ(first->GetEditWindow(), second->GetEditWindow());
  EXPECT_EQ(first->GetEditWindow()->GetForm(), window());
}

TEST_F(IdeServicesTest, HasNoFormForAWindowThatIsGone) {
  open("a", "a.pas");
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  const auto object = services->GetTopView()->GetEditWindow();
  const QPointer<TEditWindow> gone = other;
  workspace.frameOf(other)->close();
  ASSERT_TRUE(support::waitUntil([&] { return gone.isNull(); }));
  EXPECT_EQ(object->GetForm(), nullptr);
}

TEST_F(IdeServicesTest, OffersNoViewOfAFileThatIsTooLargeToBeSource) {
  open("a\n" + QByteArray(static_cast<int>(plainLineCharacters) + 1, 'b'));
  ASSERT_TRUE(workspace.topPage()->document()->isPlain());
  EXPECT_EQ(services->GetTopView(), nullptr);
  EXPECT_EQ(services->GetTopBuffer(), nullptr);
  EXPECT_EQ(services->CurrentModule(), nullptr);
}

TEST_F(IdeServicesTest, OpensAFile) {
  activate(window());
  EXPECT_TRUE(services->OpenFile(write(QStringLiteral("a.pas"), "a")));
  EXPECT_EQ(services->GetTopBuffer()->GetFileName(), path(QStringLiteral("a.pas")));
}

TEST_F(IdeServicesTest, BringsAnOpenFileToTheFront) {
  const auto first = open("a", "a.pas");
  open("b", "b.pas");
  EXPECT_TRUE(services->OpenFile(path(QStringLiteral("a.pas"))));
  EXPECT_EQ(services->GetTopView(), first);
}

TEST_F(IdeServicesTest, BringsAFileOfAnotherWindowToTheTop) {
  const auto first = open("a", "a.pas");
  open("b", "b.pas");
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  EXPECT_TRUE(services->OpenFile(path(QStringLiteral("a.pas"))));
  EXPECT_EQ(services->GetTopView(), first) << "at once";
  EXPECT_TRUE(support::waitUntil([this] { return frame()->isActiveWindow(); }));
  EXPECT_EQ(services->GetTopView(), first);
}

TEST_F(IdeServicesTest, ShowsABufferOfAnotherWindow) {
  const auto first = open("a", "a.pas");
  open("b", "b.pas");
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  frame()->showMinimized();
  first->GetBuffer()->Show();
  EXPECT_EQ(services->GetTopView(), first);
  EXPECT_FALSE(frame()->isMinimized());
  EXPECT_TRUE(support::waitUntil([this] { return frame()->isActiveWindow(); }));
}

TEST_F(IdeServicesTest, TellsTheUserWhyAFileCannotBeOpened) {
  EXPECT_FALSE(services->OpenFile(path(QStringLiteral("no.pas"))));
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(path(QStringLiteral("no.pas"))));
}

TEST_F(IdeServicesTest, GivesTheFontOfTheEditor) {
  open("a");
  editor()->setEditorFont(editor()->editorFontFamily(), 17);
  const auto options = services->GetEditOptions();
  EXPECT_EQ(options->GetFontName(), editor()->editorFontFamily());
  EXPECT_EQ(options->GetFontSize(), 17);
}

TEST_F(IdeServicesTest, HasAModuleOfOneFile) {
  const auto view = open("a");
  const auto module = services->CurrentModule();
  ASSERT_NE(module, nullptr);
  EXPECT_EQ(services->CurrentModule(), module);
  EXPECT_EQ(module->GetModuleFileCount(), 1);
  EXPECT_EQ(module->GetModuleFileEditor(0), view->GetBuffer());
  EXPECT_EQ(std::dynamic_pointer_cast<IOTAFormEditor>(module->GetModuleFileEditor(0)), nullptr);
  EXPECT_THROW(module->GetModuleFileEditor(1), EAssertionFailed);
  EXPECT_THROW(module->GetModuleFileEditor(-1), EAssertionFailed);
}

TEST_F(IdeServicesTest, AnswersForAClosedPageWithAnError) {
  const auto view = open("abc");
  const auto buffer = view->GetBuffer();
  const auto position = view->GetPosition();
  const auto options = buffer->GetBufferOptions();
  window()->closePage(workspace.topPage());

  EXPECT_THROW(view->GetBuffer(), EViewClosed);
  EXPECT_THROW(view->GetEditWindow(), EViewClosed);
  EXPECT_THROW(view->GetPosition(), EViewClosed);
  EXPECT_THROW(view->GetCursorPos(), EViewClosed);
  EXPECT_THROW(view->SetCursorPos({1, 1}), EViewClosed);
  EXPECT_THROW(view->GetTopPos(), EViewClosed);
  EXPECT_THROW(view->GetLeftColumn(), EViewClosed);
  EXPECT_THROW(view->GetViewSize(), EViewClosed);
  TOTAEditPos editPos{1, 1};
  TOTACharPos charPos{0, 1};
  EXPECT_THROW(view->ConvertPos(true, editPos, charPos), EViewClosed);
  EXPECT_THROW(view->CharPosToPos(charPos), EViewClosed);
  EXPECT_THROW(view->PosToCharPos(0), EViewClosed);
  EXPECT_THROW(view->MoveViewToCursor(), EViewClosed);
  EXPECT_THROW(view->Paint(), EViewClosed);
  EXPECT_THROW(position->GetRow(), EViewClosed);
  EXPECT_THROW(position->GetColumn(), EViewClosed);
  EXPECT_THROW(position->Move(1, 1), EViewClosed);
  EXPECT_THROW(buffer->CreateReader(), EViewClosed);
  EXPECT_THROW(buffer->GetBufferOptions(), EViewClosed);
  EXPECT_THROW(buffer->GetIsModified(), EViewClosed);
  EXPECT_THROW(buffer->GetTopView(), EViewClosed);
  EXPECT_THROW(options->GetLeftGutterWidth(), EViewClosed);
}

TEST_F(IdeServicesTest, GivesANewViewForAFileThatIsOpenedAgain) {
  const auto first = open("a");
  window()->closePage(workspace.topPage());
  const auto second = open("a");
  EXPECT_NE(second, nullptr);
  EXPECT_NE(second, first);
}

TEST_F(IdeServicesTest, OutlivesItsWorkspace) {
  auto passing = std::make_unique<Workspace>();
  const IdeServices late(*passing);
  auto held = std::make_shared<IdeServices>(*passing);
  passing->openFile(write(QStringLiteral("a.pas"), "a"));
  const auto view = held->GetTopView();
  ASSERT_NE(view, nullptr);
  passing.reset();
  EXPECT_EQ(held->GetTopView(), nullptr);
  EXPECT_EQ(held->GetEditOptions(), nullptr);
  EXPECT_FALSE(held->OpenFile(path(QStringLiteral("a.pas"))));
  EXPECT_THROW(view->GetCursorPos(), EViewClosed);
}

TEST_F(IdeServicesTest, ServesTheTextWithOneByteACharacter) {
  const auto view = open("a\xC3\xA4\xE2\x82\xAC\nb\xF0\x9F\x98\x80\xC2\xA0\r\n");
  EXPECT_EQ(textOf(*view->GetBuffer()), "a\xE4\xBF\r\nb\xBF\xA0\r\n");
}

TEST_F(IdeServicesTest, ServesATextOfAMultipleOfTheRequestWithALastEmptyAnswer) {
  const auto view = open(QByteArray(32767, 'a'));
  const auto reader = view->GetBuffer()->CreateReader();
  std::string piece(32767, '\0');
  EXPECT_EQ(reader->GetText(0, piece.data(), 32767), 32767);
  EXPECT_EQ(reader->GetText(32767, piece.data(), 32767), 0);
}

TEST_F(IdeServicesTest, ReadsNothingOutsideTheText) {
  const auto reader = open("abc")->GetBuffer()->CreateReader();
  char piece[4] = {};
  EXPECT_EQ(reader->GetText(3, piece, 4), 0);
  EXPECT_EQ(reader->GetText(-1, piece, 4), 0);
  EXPECT_EQ(reader->GetText(0, piece, 0), 0);
  EXPECT_EQ(reader->GetText(0, piece, -1), 0);
  EXPECT_EQ(reader->GetText(1, piece, 4), 2);
  EXPECT_EQ(std::string(piece, 2), "bc");
}

TEST_F(IdeServicesTest, ReadsTheTextAsItWasWhenTheReaderWasMade) {
  const auto view = open("abc");
  const auto reader = view->GetBuffer()->CreateReader();
  type(QStringLiteral("x"));
  char piece[8] = {};
  EXPECT_EQ(reader->GetText(0, piece, 8), 3);
  EXPECT_EQ(textOf(*view->GetBuffer()), "xabc");
  window()->closePage(workspace.topPage());
  EXPECT_EQ(reader->GetText(0, piece, 8), 3);
}

TEST_F(IdeServicesTest, TellsWhetherABufferIsModified) {
  const auto buffer = open("abc")->GetBuffer();
  EXPECT_FALSE(buffer->GetIsModified());
  type(QStringLiteral("x"));
  EXPECT_TRUE(buffer->GetIsModified());
}

TEST_F(IdeServicesTest, NamesAnUnsavedFileAsAPascalFile) {
  workspace.newFile();
  const QString name = services->GetTopBuffer()->GetFileName();
  EXPECT_TRUE(name.endsWith(QStringLiteral(".pas")));
  EXPECT_TRUE(QDir::isAbsolutePath(name));
}

TEST_F(IdeServicesTest, GivesTheWidthOfTheGutter) {
  const auto options = open("a")->GetBuffer()->GetBufferOptions();
  EXPECT_EQ(options->GetLeftGutterWidth(), editor()->gutterWidth());
  editor()->setGutterWidth(0);
  EXPECT_EQ(options->GetLeftGutterWidth(), 0);
}

} // namespace
} // namespace desktop
