// SPDX-License-Identifier: MIT
#include "desktop/handover/PeerUser.h"

#include <sys/socket.h>
#include <unistd.h>

namespace desktop {

bool isOwnUser(int descriptor) {
  ucred peer = {};
  socklen_t size = sizeof peer;
  return ::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

} // namespace desktop
