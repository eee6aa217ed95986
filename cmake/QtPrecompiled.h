// SPDX-License-Identifier: MIT
// The Qt and standard headers that most of the editor includes, compiled once.
#pragma once

#include <QtCore/QtCore>
#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>
