// SPDX-License-Identifier: MIT
// The outline of one source file: its types and routines with their lines, the units it uses, and the routine that
// holds the caret.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/QVNameList.h"

namespace quorvane {

enum TQVPasElementType : unsigned char { qvBlockStart, qvBlockMiddle, qvBlockEnd, qvRoundStart, qvRoundEnd };

// One element of a block structure, for drawing.
class IQVDrawElement {
public:
  virtual ~IQVDrawElement() = default;

  virtual std::int32_t GetLine() const = 0;
  virtual std::int32_t GetCol() const = 0;
  virtual std::int32_t GetLinearPos() const = 0;
  virtual std::int32_t GetLength() const = 0;
  virtual TQVPasElementType GetElementType() const = 0;
};

class TQVPasElement : public IQVDrawElement {
public:
  TQVPasElement(std::int32_t line, std::int32_t col, std::int32_t linearPos, std::int32_t length,
                TQVPasElementType elementType)
      : FLine(line), FCol(col), FLinearPos(linearPos), FLength(length), FElementType(elementType) {}

  std::int32_t GetLine() const override { return FLine; }
  std::int32_t GetCol() const override { return FCol; }
  std::int32_t GetLinearPos() const override { return FLinearPos; }
  std::int32_t GetLength() const override { return FLength; }
  TQVPasElementType GetElementType() const override { return FElementType; }

private:
  std::int32_t FLine;
  std::int32_t FCol;
  std::int32_t FLinearPos;
  std::int32_t FLength;
  TQVPasElementType FElementType;
};

// An outline as it is handed about: through a shared pointer, from the thread that has filled it to the main thread.
// Nothing changes it after that; whoever hands it over has settled its lists. Lines count from 0 and are -1 until they
// are set. The lists belong to the outline.
class IQVPasInfo {
public:
  virtual ~IQVPasInfo() = default;

  // The dotted path of the classes, and that of the routines, at the caret; empty where there is none.
  virtual void SetCurrentClass(const std::string& value) = 0;
  virtual const std::string& GetCurrentClass() const = 0;
  virtual void SetCurrentProc(const std::string& value) = 0;
  virtual const std::string& GetCurrentProc() const = 0;

  // The lines of the words interface and implementation.
  virtual void SetInterfaceLine(std::int32_t value) = 0;
  virtual std::int32_t GetInterfaceLine() const = 0;
  virtual void SetImplementationLine(std::int32_t value) = 0;
  virtual std::int32_t GetImplementationLine() const = 0;

  // Routines and methods, named with all that is around them, and all declared types: records, enumerations and
  // aliases too, whatever the name of the list says. Both intended.
  virtual const TQVNameList& GetMethods() const = 0;
  virtual const TQVNameList& GetClasses() const = 0;

  // The lines of the uses clauses.
  virtual std::int32_t GetInterfaceUsesLine() const = 0;
  virtual std::int32_t GetImplementationUsesLine() const = 0;
  virtual void SetImplementationUsesLine(std::int32_t value) = 0;
  virtual void SetInterfaceUsesLine(std::int32_t value) = 0;

  // Used units, in the order of the source.
  virtual const std::vector<std::string>& GetInterfaceUses() const = 0;
  virtual const std::vector<std::string>& GetImplementationUses() const = 0;

  // The elements; indexes count from 0, and one that is out of range throws std::out_of_range.
  virtual std::int32_t GetElementCount() const = 0;
  virtual std::shared_ptr<IQVDrawElement> GetElement(std::int32_t index) const = 0;

  // Whether the other outline is there and has the same hash.
  virtual bool IsSameInfo(const IQVPasInfo* other) const = 0;

  // The sum of all numbers of all elements, which wraps around.
  virtual std::int32_t GetHash() const = 0;

  // Add a name with its line; one that is there already stays with its first line.
  virtual void AddMethod(std::string_view name, std::int32_t line) = 0;
  virtual void AddClass(std::string_view name, std::int32_t line) = 0;

  virtual void AddInterfaceUses(std::string_view name) = 0;
  virtual void AddImplementationUses(std::string_view name) = 0;
  virtual void AddElement(std::int32_t line, std::int32_t col, std::int32_t linearPos, std::int32_t length,
                          TQVPasElementType elementType) = 0;
};

class TQVPasInfo : public IQVPasInfo {
public:
  void SetCurrentClass(const std::string& value) override { FCurrentClass = value; }
  const std::string& GetCurrentClass() const override { return FCurrentClass; }
  void SetCurrentProc(const std::string& value) override { FCurrentProc = value; }
  const std::string& GetCurrentProc() const override { return FCurrentProc; }
  void SetInterfaceLine(std::int32_t value) override { FInterfaceLine = value; }
  std::int32_t GetInterfaceLine() const override { return FInterfaceLine; }
  void SetImplementationLine(std::int32_t value) override { FImplementationLine = value; }
  std::int32_t GetImplementationLine() const override { return FImplementationLine; }
  const TQVNameList& GetMethods() const override { return FMethods; }
  const TQVNameList& GetClasses() const override { return FClasses; }
  std::int32_t GetInterfaceUsesLine() const override { return FInterfaceUsesLine; }
  std::int32_t GetImplementationUsesLine() const override { return FImplementationUsesLine; }
  void SetImplementationUsesLine(std::int32_t value) override { FImplementationUsesLine = value; }
  void SetInterfaceUsesLine(std::int32_t value) override { FInterfaceUsesLine = value; }
  const std::vector<std::string>& GetInterfaceUses() const override { return FInterfaceUses; }
  const std::vector<std::string>& GetImplementationUses() const override { return FImplementationUses; }
  std::int32_t GetElementCount() const override { return static_cast<std::int32_t>(FElements.size()); }
  std::shared_ptr<IQVDrawElement> GetElement(std::int32_t index) const override;
  bool IsSameInfo(const IQVPasInfo* other) const override;
  std::int32_t GetHash() const override { return FHash; }
  void AddMethod(std::string_view name, std::int32_t line) override { FMethods.Add(name, line); }
  void AddClass(std::string_view name, std::int32_t line) override { FClasses.Add(name, line); }
  void AddInterfaceUses(std::string_view name) override { FInterfaceUses.emplace_back(name); }
  void AddImplementationUses(std::string_view name) override { FImplementationUses.emplace_back(name); }
  void AddElement(std::int32_t line, std::int32_t col, std::int32_t linearPos, std::int32_t length,
                  TQVPasElementType elementType) override;

private:
  std::string FCurrentClass;
  std::string FCurrentProc;
  std::int32_t FInterfaceLine = -1;
  std::int32_t FImplementationLine = -1;
  std::int32_t FInterfaceUsesLine = -1;
  std::int32_t FImplementationUsesLine = -1;
  TQVNameList FMethods;
  TQVNameList FClasses;
  std::vector<std::string> FInterfaceUses;
  std::vector<std::string> FImplementationUses;
  std::vector<std::shared_ptr<IQVDrawElement>> FElements;
  std::int32_t FHash = 0;
};

} // namespace quorvane
