// SPDX-License-Identifier: MIT
// The main form of a host, with the menu into which add-ins put their items.
#pragma once

#include <QAction>
#include <QMenu>
#include <QWidget>

namespace fakes {

// The application's main form while it lives: a form with the menu "ToolsMenu", which holds an item and below it
// "ToolsGalleryItem". Menu and gallery item are components of the form.
class FakeMainForm : public QWidget {
  Q_OBJECT
public:
  FakeMainForm();
  ~FakeMainForm() override;

  QMenu& Tools() const { return *tools_; }
  QAction& Gallery() const { return *gallery_; }
  // The texts of the menu's items, from the top.
  QStringList ToolsTexts() const;
  // The item with this text, or null.
  QAction* ToolsItem(const QString& text) const;

private:
  QMenu* tools_;
  QAction* gallery_;
};

} // namespace fakes
