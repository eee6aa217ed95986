// SPDX-License-Identifier: MIT
// The slot for a client that gathers statistics about typing.
#pragma once

#include <memory>

namespace quorvane {

// Told of what the add-in types into an editor. Main thread only.
class IQVEditorStatClient {
public:
  virtual ~IQVEditorStatClient();
  // A template expansion has typed `character`, a code point.
  virtual void CharTyped(char32_t character) = 0;
};

// The client, empty unless somebody outside the add-in has set it: nothing here assigns it, and users test it before
// they call it.
extern std::shared_ptr<IQVEditorStatClient> QVEditorStatClient;

// Start and stop of the unit: both leave the slot empty.
void StartQVStatManager();
void StopQVStatManager();

} // namespace quorvane
