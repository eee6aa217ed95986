// SPDX-License-Identifier: MIT
#include "host/QVOTAServices.h"

#include "support/fakes/FakeServices.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

struct Accessor {
  const char* Name;
  std::shared_ptr<platform::IInterface> (*Get)();
  bool OfferedBySmallHosts;
};

template <auto Get> std::shared_ptr<platform::IInterface> AsInterface() {
  return Get();
}

const Accessor kAccessors[] = {
    {"Services", AsInterface<OTAServices>, true},
    {"NativeServices", AsInterface<NTAServices>, true},
    {"ActionServices", AsInterface<OTAActionServices>, true},
    {"DebuggerServices", AsInterface<OTADebuggerServices>, false},
    {"EditorServices", AsInterface<OTAEditorServices>, true},
    {"KeyBindingServices", AsInterface<OTAKeyBindingServices>, false},
    {"KeyboardServices", AsInterface<OTAKeyboardServices>, false},
    {"MessageServices", AsInterface<OTAMessageServices>, true},
    {"ModuleServices", AsInterface<OTAModuleServices>, true},
    {"PackageServices", AsInterface<OTAPackageServices>, false},
    {"SearchPathServices", AsInterface<OTASearchPathServices>, true},
    {"ToDoServices", AsInterface<OTAToDoServices>, false},
    {"WizardServices", AsInterface<OTAWizardServices>, false},
};

class QVOTAServices : public testing::TestWithParam<Accessor> {};
INSTANTIATE_TEST_SUITE_P(All, QVOTAServices, testing::ValuesIn(kAccessors),
                         [](const auto& accessor) { return std::string(accessor.param.Name); });

TEST_P(QVOTAServices, GivesTheHostsObjectWhenItOffersTheInterface) {
  const auto host = std::make_shared<fakes::FullServices>();
  const fakes::InstalledServices installed(host);
  EXPECT_EQ(GetParam().Get(), std::dynamic_pointer_cast<platform::IInterface>(host));
}

TEST_P(QVOTAServices, GivesNullForAnInterfaceThatTheHostDoesNotOffer) {
  const fakes::InstalledServices installed(std::make_shared<fakes::FakeServices>());
  EXPECT_EQ(GetParam().Get() != nullptr, GetParam().OfferedBySmallHosts);
}

TEST_P(QVOTAServices, GivesNullWithoutAHost) {
  EXPECT_EQ(GetParam().Get(), nullptr);
}

} // namespace
} // namespace quorvane
