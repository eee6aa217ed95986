// SPDX-License-Identifier: MIT
#include "desktop/handover/Messages.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace desktop {

namespace {

constexpr int version = 1;

const auto versionKey = QLatin1StringView("virelle");
const auto folderKey = QLatin1StringView("folder");
const auto filesKey = QLatin1StringView("files");
const auto caretKey = QLatin1StringView("caret");
const auto lineKey = QLatin1StringView("line");
const auto columnKey = QLatin1StringView("column");
const auto waitKey = QLatin1StringView("wait");
const auto startupIdKey = QLatin1StringView("startupId");
const auto activationTokenKey = QLatin1StringView("activationToken");
const auto openedKey = QLatin1StringView("opened");
const auto closedKey = QLatin1StringView("closed");
const auto problemsKey = QLatin1StringView("problems");

QByteArray lineOf(const QJsonObject& json) {
  return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject objectOf(const QByteArray& line) {
  return QJsonDocument::fromJson(line).object();
}

QStringList stringsOf(const QJsonValue& array) {
  QStringList strings;
  for (const QJsonValue string : array.toArray())
    strings.append(string.toString());
  return strings;
}

} // namespace

QByteArray greetingLine() {
  return lineOf({{versionKey, version}});
}

QByteArray requestLine(const OpenRequest& request) {
  QJsonObject json{{versionKey, version},
                   {folderKey, request.folder},
                   {filesKey, QJsonArray::fromStringList(request.files)},
                   {waitKey, request.wait},
                   {startupIdKey, QString::fromUtf8(request.startupId)},
                   {activationTokenKey, QString::fromUtf8(request.activationToken)}};
  if (request.caret)
    json[caretKey] = QJsonObject{{lineKey, request.caret->line}, {columnKey, request.caret->column}};
  return lineOf(json);
}

QByteArray openedLine(const QStringList& problems) {
  return lineOf({{openedKey, true}, {problemsKey, QJsonArray::fromStringList(problems)}});
}

QByteArray closedLine() {
  return lineOf({{closedKey, true}});
}

std::optional<OpenRequest> requestOf(const QByteArray& line) {
  const QJsonObject json = objectOf(line);
  OpenRequest request;
  request.folder = json[folderKey].toString();
  if (json[versionKey].toInt() != version || !json[filesKey].isArray() || !QDir::isAbsolutePath(request.folder))
    return std::nullopt;
  request.files = stringsOf(json[filesKey]);
  request.wait = json[waitKey].toBool();
  request.startupId = json[startupIdKey].toString().toUtf8();
  request.activationToken = json[activationTokenKey].toString().toUtf8();
  const CaretPlace place{json[caretKey][lineKey].toInt(), json[caretKey][columnKey].toInt()};
  if (place.line >= 1 && place.column >= 1)
    request.caret = place;
  return request;
}

EditorNews newsOf(const QByteArray& line) {
  const QJsonObject json = objectOf(line);
  return {json[versionKey].toInt() == version, json[openedKey].toBool(), json[closedKey].toBool(),
          stringsOf(json[problemsKey])};
}

} // namespace desktop
