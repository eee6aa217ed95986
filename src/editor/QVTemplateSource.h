// SPDX-License-Identifier: MIT
// Where the editor gets the text of a template from.
#pragma once

#include "platform/ota/Editor.h"

#include <QString>

#include <memory>

namespace quorvane {

// Knows the templates by name. When a name and the template key have been typed, the editor asks whether it is a
// template and then for its text, which it types in place of the name. Main thread only.
class IQVTemplateSource {
public:
  virtual ~IQVTemplateSource();

  // Whether there is a template `name`, in whatever case.
  virtual bool IsTemplateName(const QString& name) = 0;
  // The text to type for the template `name`, in lower case, at the caret of `view`, which is not null: a carriage
  // return for each line end, "|" where the caret is to stop, "~" where the character before it is to go. Empty when
  // there is no such template, or no template may expand there.
  virtual QString GetTemplateText(const QString& name, const std::shared_ptr<platform::IOTAEditView>& view) = 0;
};

// The one source, not owned; null while there is none, and then nothing expands. Whoever sets it takes it away before
// it goes.
extern IQVTemplateSource* QVTemplateSource;

} // namespace quorvane
