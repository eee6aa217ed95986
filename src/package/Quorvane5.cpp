// SPDX-License-Identifier: MIT
// The package: which units the add-in consists of, in which order they start, and what each does then and when it
// stops.
//
// A new unit is one row in kContains, at its place among the contents, and one in Units, at its place among the starts;
// the stops are those of Units backwards. Most stops write a line to the debugger output, so that a watcher sees how
// far the package has come; those of QVEditorDraw and QVTemplateEditor lack the word that the others end with, and that
// of zkSimplePasParTypes turns its first two letters around, both as intended.
#include "analysis/QVParseThread.h"
#include "editor/QVEditorProxy.h"
#include "editor/QVMarkerStack.h"
#include "host/QVLog.h"
#include "host/QVStatManager.h"
#include "host/QVVirelleSplash.h"
#include "platform/Debug.h"
#include "platform/Package.h"
#include "settings/QVColorPicker.h"
#include "settings/QVOptionsForm.h"
#include "settings/QVTemplateEditor.h"
#include "toolbar/QVEditorToolbar.h"

#include <type_traits>

namespace quorvane {

namespace {

using platform::OutputDebugString;

void StopQVEditorProxy() {
  TQVEditorProxy::RemoveExistingProxies();
  OutputDebugString("QVEditorProxy Finalized");
}

void StopQVEditorToolbar() {
  StopEditorToolbar();
  OutputDebugString("QVEditorToolbar Finalized");
}

// For units that register, but have nothing to do then.
void RegisterNothing() {}

constexpr const char* kRequires[] = {"VclSmp50", "vclx50", "dsnide50", "vcl50"};

constexpr platform::TContainedUnit kContains[] = {
    {"Quorvane5", nullptr},
    {"QVStatManager", nullptr},
    {"SysInit", nullptr},
    {"QVVirelleSplash", nullptr},
    {"QVTemplateEditor", nullptr},
    {"QVLog", nullptr},
    {"QVSourceUtils", nullptr},
    {"QVOTAServices", nullptr},
    {"QVOptions", nullptr},
    {"QVEditorProxy", TQVEditorProxy::InjectExistingProxies},
    {"QVEditorDraw", nullptr},
    {"QVMarkerStack", nullptr},
    {"QVLocalVars", nullptr},
    {"QVIDEHackUtils", nullptr},
    {"QVPasInfo", nullptr},
    {"QVEditorToolbar", RegisterEditorToolbar},
    {"QVLiteParse", nullptr},
    {"zkPasLexTypes", nullptr},
    {"zkPasLex", nullptr},
    {"QVColorPicker", RegisterColorPicker},
    {"QVParseThread", RegisterNothing},
    {"zkSimplePasParTypes", nullptr},
    {"zkSimplePasPar", nullptr},
};

platform::TUnitEntry Units[] = {
    {"QVColorPicker", nullptr, [] { OutputDebugString("QVColorPicker Finalized"); }},
    {"QVPasInfo", nullptr, [] { OutputDebugString("QVPasInfo Finalized"); }},
    {"QVOTAServices", nullptr, nullptr},
    {"QVSourceUtils", nullptr, [] { OutputDebugString("QVSourceUtils Finalized"); }},
    {"QVIDEHackUtils", nullptr, [] { OutputDebugString("QVIDEHackUtils Finalized"); }},
    {"QVLog", StartQVLog, StopQVLog},
    {"zkPasLexTypes", nullptr, [] { OutputDebugString("zkPasLexTypes Finalized"); }},
    {"zkPasLex", nullptr, [] { OutputDebugString("zkPasLex Finalized"); }},
    {"QVLiteParse", nullptr, [] { OutputDebugString("QVLiteParse Finalized"); }},
    {"QVTemplateEditor", StartQVTemplateEditor, StopQVTemplateEditor},
    {"QVStatManager", StartQVStatManager, StopQVStatManager},
    {"QVMarkerStack", StartQVMarkerStack, StopQVMarkerStack},
    {"QVEditorDraw", nullptr, [] { OutputDebugString("QVEditorDraw"); }},
    {"QVEditorProxy", nullptr, StopQVEditorProxy},
    {"QVLocalVars", nullptr, [] { OutputDebugString("QVLocalVars Finalized"); }},
    {"QVOptions", StartQVOptions, StopQVOptions},
    {"QVEditorToolbar", nullptr, StopQVEditorToolbar},
    {"zkSimplePasParTypes", nullptr, [] { OutputDebugString("kzSimplePasParTypes Finalized"); }},
    {"zkSimplePasPar", nullptr, [] { OutputDebugString("zkSimplePasPar Finalized"); }},
    {"QVParseThread", StartQVParseThread, StopQVParseThread},
    {"QVVirelleSplash", StartQVVirelleSplash, nullptr},
};

const platform::TPackageInfoTable kTable = {
    .Description = u"Virelle for Delphi 5",
    .Requires = kRequires,
    .Contains = kContains,
    .Units = Units,
};

} // namespace

} // namespace quorvane

#define VIRELLE_ENTRY_POINT extern "C" __attribute__((visibility("default")))

VIRELLE_ENTRY_POINT void Initialize() {
  platform::InitializePackage(quorvane::kTable);
}

VIRELLE_ENTRY_POINT void Finalize() {
  platform::FinalizePackage(quorvane::kTable);
}

VIRELLE_ENTRY_POINT const platform::TPackageInfoTable* GetPackageInfoTable() {
  return &quorvane::kTable;
}

static_assert(std::is_same_v<decltype(&Initialize), platform::TPackageProcedure>);
static_assert(std::is_same_v<decltype(&Finalize), platform::TPackageProcedure>);
static_assert(std::is_same_v<decltype(&GetPackageInfoTable), platform::TPackageInfoFunction>);
