// SPDX-License-Identifier: MIT
#include "platform/Component.h"

#include <gtest/gtest.h>

#include <QWidget>

using namespace platform;

TEST(Component, IsFoundByItsExactName) {
  QObject owner;
  auto* child = new QObject(&owner);
  child->setObjectName(QStringLiteral("Editor"));
  EXPECT_EQ(FindComponent(owner, QStringLiteral("Editor")), child);
  EXPECT_EQ(FindComponent(owner, QStringLiteral("editor")), nullptr);
}

TEST(Component, DeeperDescendantsAreNotComponents) {
  QObject owner;
  auto* child = new QObject(&owner);
  auto* grandchild = new QObject(child);
  grandchild->setObjectName(QStringLiteral("Editor"));
  EXPECT_EQ(FindComponent(owner, QStringLiteral("Editor")), nullptr);
}

TEST(Component, EmptyNameNamesNoComponent) {
  QObject owner;
  const QObject* child = new QObject(&owner);
  EXPECT_EQ(child->parent(), &owner);
  EXPECT_EQ(FindComponent(owner, QString()), nullptr);
}

TEST(Component, ClassNameHasNoNamespace) {
  EXPECT_EQ(ClassName(QWidget()), QStringLiteral("QWidget"));
}
