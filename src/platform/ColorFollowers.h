// SPDX-License-Identifier: MIT
// How an add-in's colours go with the host's colour scheme.
//
// An add-in brings colours of its own, designed for a light ground or a dark one, and keeps them as it likes. Only it
// knows which others would read on the other ground, and only the host knows when the ground changes, and whether the
// user wants the add-in's colours to change with it. So the add-in adds a follower, and the host asks the followers.
#pragma once

#include "platform/Export.h"

#include <functional>
#include <utility>
#include <vector>

namespace platform {

// The colours of one add-in.
class VIRELLE_PLATFORM IColorFollower {
public:
  virtual ~IColorFollower();

  // Whether Follow would change a colour.
  virtual bool WouldFollow(bool dark) const = 0;
  // Gives each colour that is the one designed for the other ground the one for this, light on dark or dark on light,
  // keeps it as the user's own choice would be kept, and shows it. Colours that the user has chosen stay.
  virtual void Follow(bool dark) = 0;
};

// All followers. What a follower throws goes to TApplication::HandleException. Main thread only.
class VIRELLE_PLATFORM TColorFollowers {
public:
  // `follower` is not owned and must be removed before it goes.
  void Add(IColorFollower& follower);
  void Remove(const IColorFollower& follower);
  // The host's: called after each Add. An empty function, as at first, does nothing.
  void SetOnAdded(std::function<void()> onAdded) { onAdded_ = std::move(onAdded); }

  // Whether one of them would.
  bool WouldFollow(bool dark) const;
  // Has all of them follow.
  void Follow(bool dark);

private:
  std::vector<IColorFollower*> followers_;
  std::function<void()> onAdded_;
};

// The followers of the process.
VIRELLE_PLATFORM TColorFollowers& ColorFollowers();

} // namespace platform
