// SPDX-License-Identifier: MIT
#include "desktop/ui/AddInColours.h"

#include "desktop/files/EnvironmentSettings.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Workspace.h"
#include "platform/ColorFollowers.h"

#include <utility>

namespace desktop {

AddInColours::AddInColours(Workspace& workspace) : workspace_(workspace) {
  platform::ColorFollowers().SetOnAdded([this] { update(); });
  connect(&workspace.appearance(), &Appearance::changed, this, &AddInColours::update);
}

AddInColours::~AddInColours() {
  platform::ColorFollowers().SetOnAdded({});
}

void AddInColours::startAsking() {
  mayAsk_ = true;
  update();
}

void AddInColours::update() {
  const EnvironmentValues& values = workspace_.settings().values();
  const bool dark = workspace_.appearance().isDark();
  const bool followed = std::exchange(follow_, values.addInColours);
  if (follow_)
    platform::ColorFollowers().Follow(dark);
  else if (followed)
    takeBack();
  const bool wanted = dark && !values.addInColours && platform::ColorFollowers().WouldFollow(dark);
  if (!wanted && bar_)
    bar_->withdraw(question_);
  else if (wanted && mayAsk_ && !values.addInColoursAsked)
    ask();
}

// Whoever does not want them to follow must not be left with those for dark ground on light.
void AddInColours::takeBack() {
  platform::ColorFollowers().Follow(false);
  workspace_.settings().set(&EnvironmentValues::addInColoursAsked, true); // and need not be asked
}

void AddInColours::ask() {
  const QPointer<AddInColours> self = this;
  const auto adapt = [self] {
    if (self)
      self->workspace_.settings().set(&EnvironmentValues::addInColours, true);
  };
  bar_ = workspace_.topWindow()->messageBar();
  question_ = bar_->ask(
      MessageBar::Kind::Information,
      tr("Colours of the add-ins are made for light ground and hard to read on dark. They can go with the scheme from "
         "now on; those that you have chosen yourself stay."),
      {{tr("&Adapt Colours"), adapt}});
  workspace_.settings().set(&EnvironmentValues::addInColoursAsked, true);
}

} // namespace desktop
