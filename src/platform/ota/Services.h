// SPDX-License-Identifier: MIT
// The services that a host offers to add-ins.
//
// BorlandIDEServices is one object; an add-in casts it with std::dynamic_pointer_cast to the interface that it wants
// and gets null when the host does not offer that one. Main thread only.
#pragma once

#include "platform/Export.h"
#include "platform/ota/Editor.h"
#include "platform/ota/Interface.h"
#include "platform/ota/Module.h"

#include <QString>

#include <memory>
#include <vector>

namespace platform {

class VIRELLE_PLATFORM IOTAServices : public virtual IInterface {
public:
  ~IOTAServices() override;
  // The key under which the host keeps its settings.
  virtual QString GetBaseRegistryKey() const = 0;
};

class VIRELLE_PLATFORM INTAServices : public virtual IInterface {
public:
  ~INTAServices() override;
};

class VIRELLE_PLATFORM IOTAActionServices : public virtual IInterface {
public:
  ~IOTAActionServices() override;
  // Opens `fileName`, or brings its page and its window to the front when it is open, so that it is the top view when
  // the call returns. False when it cannot be opened; the host has then told the user why.
  virtual bool OpenFile(const QString& fileName) = 0;
};

class VIRELLE_PLATFORM IOTAEditorServices : public virtual IInterface {
public:
  ~IOTAEditorServices() override;
  // The view of the editor window that was activated last, also while a dialog has the focus; null when there is none
  // or when its page is not offered to add-ins (too large, or not text).
  virtual std::shared_ptr<IOTAEditView> GetTopView() = 0;
  virtual std::shared_ptr<IOTAEditBuffer> GetTopBuffer() = 0;
  virtual std::shared_ptr<IOTAEditOptions> GetEditOptions() = 0;
};

class VIRELLE_PLATFORM IOTAModuleServices : public virtual IInterface {
public:
  ~IOTAModuleServices() override;
  // The module of the top view, or null.
  virtual std::shared_ptr<IOTAModule> CurrentModule() = 0;
};

class VIRELLE_PLATFORM IOTAMessageServices : public virtual IInterface {
public:
  ~IOTAMessageServices() override;
  // Shows `text` to the user without interrupting the work.
  virtual void AddTitleMessage(const QString& text) = 0;
};

// A folder in which the host's user keeps sources.
struct TOTASearchFolder {
  QString Path; // absolute; the folder need not exist
  bool WithSubfolders = false;

  friend bool operator==(const TOTASearchFolder&, const TOTASearchFolder&) = default;
};

class VIRELLE_PLATFORM IOTASearchPathServices : public virtual IInterface {
public:
  ~IOTASearchPathServices() override;
  // Where units are looked for, the first folder first.
  virtual std::vector<TOTASearchFolder> GetSearchPath() = 0;
};

// Services that an add-in may ask for and that a small host need not have.
class VIRELLE_PLATFORM IOTADebuggerServices : public virtual IInterface {
public:
  ~IOTADebuggerServices() override;
};
class VIRELLE_PLATFORM IOTAKeyBindingServices : public virtual IInterface {
public:
  ~IOTAKeyBindingServices() override;
};
class VIRELLE_PLATFORM IOTAKeyboardServices : public virtual IInterface {
public:
  ~IOTAKeyboardServices() override;
};
class VIRELLE_PLATFORM IOTAPackageServices : public virtual IInterface {
public:
  ~IOTAPackageServices() override;
};
class VIRELLE_PLATFORM IOTAToDoServices : public virtual IInterface {
public:
  ~IOTAToDoServices() override;
};
class VIRELLE_PLATFORM IOTAWizardServices : public virtual IInterface {
public:
  ~IOTAWizardServices() override;
};

// The host's service object; null before the host has set it and after it has taken it away.
VIRELLE_PLATFORM const std::shared_ptr<IInterface>& BorlandIDEServices();
// For the host, and for tests.
VIRELLE_PLATFORM void SetBorlandIDEServices(std::shared_ptr<IInterface> services);

} // namespace platform
