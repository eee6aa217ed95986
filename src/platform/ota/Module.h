// SPDX-License-Identifier: MIT
// Modules: a unit with all the files that belong to it.
#pragma once

#include "platform/Export.h"
#include "platform/ota/Editor.h"
#include "platform/ota/Interface.h"

#include <memory>

namespace platform {

// A form designer. No host of this tree has one; the interface is what add-ins look for.
class VIRELLE_PLATFORM IFormDesigner : public virtual IInterface {
public:
  ~IFormDesigner() override;
};

// The editor of a form file.
class VIRELLE_PLATFORM IOTAFormEditor : public virtual IOTAEditor {
public:
  ~IOTAFormEditor() override;
};

// The native side of a form editor.
class VIRELLE_PLATFORM INTAFormEditor : public virtual IInterface {
public:
  ~INTAFormEditor() override;
  // The designer, or null.
  virtual std::shared_ptr<IFormDesigner> GetFormDesigner() = 0;
};

// A unit and its files.
class VIRELLE_PLATFORM IOTAModule : public virtual IInterface {
public:
  ~IOTAModule() override;
  virtual int GetModuleFileCount() const = 0;
  // The editor of file `index`, from 0 to GetModuleFileCount() - 1.
  virtual std::shared_ptr<IOTAEditor> GetModuleFileEditor(int index) = 0;
};

} // namespace platform
