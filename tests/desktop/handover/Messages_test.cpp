// SPDX-License-Identifier: MIT
#include "desktop/handover/Messages.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

TEST(HandOverMessages, ARequestComesBackAsItWas) {
  OpenRequest request;
  request.folder = QStringLiteral("/home/me/\u00e4 b");
  request.files = {QStringLiteral("a.pas:3:4"), QStringLiteral("two\nlines.pas"), QStringLiteral("\"\\"), QString()};
  request.caret = CaretPlace{7, 8};
  request.wait = true;
  request.startupId = "host-1_TIME42";
  request.activationToken = "token";
  const QByteArray line = requestLine(request);
  EXPECT_EQ(line.indexOf('\n'), line.size() - 1);
  const auto read = requestOf(line);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->folder, request.folder);
  EXPECT_EQ(read->files, request.files);
  EXPECT_EQ(read->caret, request.caret);
  EXPECT_TRUE(read->wait);
  EXPECT_EQ(read->startupId, request.startupId);
  EXPECT_EQ(read->activationToken, request.activationToken);
}

TEST(HandOverMessages, ARequestNeedNotNameAPlace) {
  const auto read = requestOf(requestLine({QStringLiteral("/"), {}, {}, false, {}, {}}));
  ASSERT_TRUE(read);
  EXPECT_FALSE(read->caret);
  EXPECT_FALSE(read->wait);
  EXPECT_TRUE(read->files.isEmpty());
}

TEST(HandOverMessages, WhatIsNoRequestOfThisVersionIsRefused) {
  for (const char* line :
       {"", "{", "[]", "{}", R"({"virelle":2,"folder":"/","files":[]})", R"({"virelle":1,"folder":"a","files":[]})",
        R"({"virelle":1,"folder":"/","files":"a"})", R"({"virelle":1,"files":[]})"})
    EXPECT_FALSE(requestOf(line)) << line;
}

TEST(HandOverMessages, APlaceBeforeTheTextIsNone) {
  const auto read = requestOf(R"({"virelle":1,"folder":"/","files":[],"caret":{"line":0,"column":-3}})");
  ASSERT_TRUE(read);
  EXPECT_FALSE(read->caret);
}

TEST(HandOverMessages, TheEditorsNewsAreToldApart) {
  EXPECT_TRUE(newsOf(greetingLine()).greets);
  EXPECT_FALSE(newsOf(greetingLine()).opened);
  const QStringList problems = {QStringLiteral("one"), QStringLiteral("two\nlines")};
  EXPECT_TRUE(newsOf(openedLine(problems)).opened);
  EXPECT_EQ(newsOf(openedLine(problems)).problems, problems);
  EXPECT_FALSE(newsOf(openedLine(problems)).closed);
  EXPECT_TRUE(newsOf(closedLine()).closed);
  EXPECT_FALSE(newsOf(R"({"virelle":2})").greets);
}

} // namespace
} // namespace desktop
