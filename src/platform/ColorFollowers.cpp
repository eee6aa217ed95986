// SPDX-License-Identifier: MIT
#include "platform/ColorFollowers.h"

#include "platform/Application.h"

namespace platform {

IColorFollower::~IColorFollower() = default;

void TColorFollowers::Add(IColorFollower& follower) {
  followers_.push_back(&follower);
  if (onAdded_)
    Guarded(onAdded_);
}

void TColorFollowers::Remove(const IColorFollower& follower) {
  std::erase(followers_, &follower);
}

bool TColorFollowers::WouldFollow(bool dark) const {
  bool would = false;
  for (const IColorFollower* follower : followers_)
    Guarded([&] { would = follower->WouldFollow(dark) || would; });
  return would;
}

void TColorFollowers::Follow(bool dark) {
  for (IColorFollower* follower : followers_)
    Guarded([&] { follower->Follow(dark); });
}

TColorFollowers& ColorFollowers() {
  static TColorFollowers followers;
  return followers;
}

} // namespace platform
