// SPDX-License-Identifier: MIT
#include "platform/RegistryFile.h"

#include "platform/Debug.h"
#include "platform/Registry.h"

#include <QFile>
#include <QFileInfo>

namespace platform {
namespace {

// Gives the damaged file at `path` another name as well. Raises EFileError.
void KeepDamaged(const QString& path) {
  QString aside = path + QStringLiteral(".damaged");
  for (int number = 2; QFileInfo(aside).exists(); ++number)
    aside = path + QStringLiteral(".damaged%1").arg(number);
  if (!QFile::copy(path, aside))
    throw EFileError("it is damaged, and cannot be kept as " + aside.toStdString());
  OutputDebugString(QStringLiteral("The registry in %1 is damaged; it was kept as %2").arg(path, aside).toStdString());
}

} // namespace

TRegistryDocument TRegistryFile::Read() const {
  try {
    TRegistryDocument document(file_.Read());
    if (document.Damaged())
      OutputDebugString("The registry in " + file_.Path().toStdString() +
                        " is damaged; what cannot be read is left out");
    return document;
  } catch (const EFileError& error) {
    OutputDebugString("The registry in " + file_.Path().toStdString() + " cannot be read: " + error.what());
    return {};
  }
}

void TRegistryFile::Write(const std::vector<TRegistryKeyWrites>& writes) const {
  if (file_.Path().isEmpty())
    throw ERegistryException("The registry cannot be written: there is no home directory");
  bool damaged = false;
  const auto change = [&writes, &damaged](std::string_view bytes) {
    TRegistryDocument document(bytes);
    damaged = document.Damaged();
    for (const TRegistryKeyWrites& keyWrites : writes)
      document.Write(keyWrites);
    return document.Bytes();
  };
  const auto keepDamaged = [&damaged](const QString& path) {
    if (damaged)
      KeepDamaged(path);
  };
  try {
    file_.MakeFolder();
    file_.Change(change, keepDamaged);
  } catch (const EFileError& error) {
    throw ERegistryException("The registry in " + file_.Path().toStdString() + " cannot be written: " + error.what());
  }
}

} // namespace platform
