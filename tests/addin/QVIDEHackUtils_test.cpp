// SPDX-License-Identifier: MIT
#include "host/QVIDEHackUtils.h"

#include "AddinFixture.h"
#include "platform/Errors.h"

namespace quorvane {
namespace {

using fakes::TEditWindow;
using fakes::TOtherForm;

struct FormName {
  const char* Name;
  bool IsEditor;
};

class QVIDEHackUtilsNames : public testing::TestWithParam<FormName> {};
INSTANTIATE_TEST_SUITE_P(Names, QVIDEHackUtilsNames,
                         testing::Values(FormName{"EditWindow_0", true}, FormName{"EditWindow_17", true},
                                         FormName{"EditWindow_", true}, FormName{"EditWindow_a", true},
                                         FormName{"MyEditWindow_1", false}, FormName{" EditWindow_1", false},
                                         FormName{"editwindow_1", false}, FormName{"EditWindow", false},
                                         FormName{"", false}));

TEST_P(QVIDEHackUtilsNames, FormOfTheClassIsAnEditorWhenItsNameBeginsWithThePrefix) {
  const TEditWindow form(QString::fromLatin1(GetParam().Name));
  EXPECT_EQ(IsEditorForm(form), GetParam().IsEditor);
}

TEST(QVIDEHackUtils, FormOfAnotherClassIsNoEditorWhateverItsName) {
  EXPECT_FALSE(IsEditorForm(TOtherForm(QStringLiteral("EditWindow_0"))));
}

TEST(QVIDEHackUtils, EditorFormsAreVisitedInScreenOrderAndNoOthers) {
  const TEditWindow first(QStringLiteral("EditWindow_7"));
  const TOtherForm other(QStringLiteral("EditWindow_0"));
  const TEditWindow misnamed(QStringLiteral("MyEditWindow_1"));
  const TEditWindow second(QStringLiteral("EditWindow_1"));
  std::vector<const QWidget*> visited;
  ForEachEditorForm([&](const QWidget& form) { visited.push_back(&form); });
  EXPECT_EQ(visited, (std::vector<const QWidget*>{&first, &second}));
}

TEST(QVIDEHackUtils, FormOfAViewIsThatOfItsWindow) {
  TEditWindow form;
  fakes::FakeView view(nullptr, &form);
  EXPECT_EQ(FormOf(view), &form);
  view.Window->Form = nullptr;
  EXPECT_EQ(FormOf(view), nullptr);
  view.Window = nullptr;
  EXPECT_EQ(FormOf(view), nullptr);
}

TEST(QVIDEHackUtils, EditorFormIsTheFirstOneInScreenOrder) {
  const TOtherForm other(QStringLiteral("EditWindow_0"));
  const TEditWindow misnamed(QStringLiteral("MyEditWindow_1"));
  TEditWindow first(QStringLiteral("EditWindow_7"));
  const TEditWindow second(QStringLiteral("EditWindow_1"));
  EXPECT_EQ(GetEditorForm(), &first);
}

TEST(QVIDEHackUtils, EditorFormIsAnAssertionWithoutAnEditorWindow) {
  const TOtherForm other(QStringLiteral("Main"));
  const auto assertion = AssertionOf([] { GetEditorForm(); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVIDEHackUtils");
  EXPECT_GT(assertion.Line(), 0U);
}

TEST(QVIDEHackUtils, EditControlIsThatOfTheFirstEditorWindow) {
  const TEditWindow first;
  const TEditWindow second(QStringLiteral("EditWindow_1"));
  EXPECT_EQ(GetEditControl(), &first.Editor());
}

TEST(QVIDEHackUtils, EditControlIsAnAssertionWhenTheWindowHasNone) {
  TEditWindow form;
  form.DropEditor();
  EXPECT_EQ(AssertionOf([] { GetEditControl(); }).Unit(), "QVIDEHackUtils");
}

TEST(QVIDEHackUtils, EditControlIsAnAssertionWithoutAnEditorWindow) {
  EXPECT_EQ(AssertionOf([] { GetEditControl(); }).Unit(), "QVIDEHackUtils");
}

TEST(QVIDEHackUtils, TopViewIsNullWithoutAHost) {
  EXPECT_EQ(GetTopView(), nullptr);
}

class QVIDEHackUtilsWithHost : public AddinTest {};

TEST_F(QVIDEHackUtilsWithHost, TopViewIsTheEditorServices) {
  EXPECT_EQ(GetTopView(), nullptr);
  Services->TopView = std::make_shared<fakes::FakeView>(nullptr, nullptr);
  EXPECT_EQ(GetTopView(), Services->TopView);
}

TEST_F(QVIDEHackUtilsWithHost, FormEditorIsNullWithoutACurrentModule) {
  EXPECT_EQ(GetActiveFormEditor(), nullptr);
  EXPECT_EQ(GetActiveFormDesigner(), nullptr);
}

TEST_F(QVIDEHackUtilsWithHost, FormEditorIsNullWhenNoFileOfTheModuleIsAForm) {
  const auto module = std::make_shared<fakes::FakeModule>();
  module->Files = {std::make_shared<fakes::FakeBuffer>(QStringLiteral("unit1.pas")), nullptr};
  Services->Module = module;
  EXPECT_EQ(GetActiveFormEditor(), nullptr);
  EXPECT_EQ(GetActiveFormDesigner(), nullptr);
}

TEST_F(QVIDEHackUtilsWithHost, FormEditorIsTheFirstAmongTheModulesFiles) {
  const auto module = std::make_shared<fakes::FakeModule>();
  const auto first = std::make_shared<fakes::FakeFormEditor>();
  module->Files = {std::make_shared<fakes::FakeBuffer>(QStringLiteral("unit1.pas")), first,
                   std::make_shared<fakes::FakeFormEditor>()};
  Services->Module = module;
  EXPECT_EQ(GetActiveFormEditor(), first);
}

TEST_F(QVIDEHackUtilsWithHost, FormDesignerIsThatOfTheFormEditor) {
  const auto module = std::make_shared<fakes::FakeModule>();
  const auto form = std::make_shared<fakes::FakeFormEditor>();
  module->Files = {form};
  Services->Module = module;
  EXPECT_EQ(GetActiveFormDesigner(), nullptr);
  form->Designer = std::make_shared<fakes::FakeFormDesigner>();
  EXPECT_EQ(GetActiveFormDesigner(), form->Designer);
}

} // namespace
} // namespace quorvane
