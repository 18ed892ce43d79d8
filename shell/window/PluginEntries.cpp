#include "shell/window/PluginEntries.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace veldrin {
namespace {

/// The names of the entries in their fixed order.
constexpr std::array<StringConstant, PluginEntryCount> EntryNames{
    "_"_s,
    "BevelButton.DeleteAllRows"_s,
    "BevelButton.AddRow(text As String)"_s,
    "BevelButton.Caption.Set"_s,
    "BevelButton.Value.Set"_s,
    "BevelButton.Bold.Set"_s,
    "BevelButton.Italic.Set"_s,
    "BevelButton.Underline.Set"_s,
    "BevelButton.TextFont.Set"_s,
    "BevelButton.TextSize.Set"_s,
    "BevelButton.TextUnit.Set"_s,
    "BevelButton.TextColor.Set"_s,
    "BevelButton.HasBackColor.Set"_s,
    "BevelButton.BackColor.Set"_s,
    "BevelButton.AcceptFocus.Set"_s,
    "BevelButton.Left.Set"_s,
    "BevelButton.Top.Set"_s,
    "BevelButton.Width.Set"_s,
    "BevelButton.Height.Set"_s,
    "BevelButton.Visible.Set"_s,
    "BevelButton.Enabled.Set"_s,
    "BevelButton.HelpTag.Set"_s,
    "BevelButton.TabStop.Set"_s,
    "BevelButton.TabIndex.Set"_s,
    "BevelButton.AutoDeactivate.Set"_s,
    "Placard.Value.Set"_s,
    "DisclosureTriangle.Value.Set"_s,
    "DisclosureTriangle.AcceptFocus.Set"_s,
    "ImageWell.Image.Set"_s,
};

std::vector<Function> entries;  // in the order of `EntryNames`

}  // namespace

Function RuntimeLookupPluginEntrypoint(const String& name) {
  constexpr std::string_view Ending = ".Set";
  std::string_view rest = name.view();
  if (!rest.ends_with(Ending)) return nullptr;
  rest.remove_suffix(Ending.size());
  const std::size_t dot = rest.rfind('.');
  if (dot == std::string_view::npos) return nullptr;
  for (const ClassRecord* record = RuntimeGetClassList(); record != nullptr;
       record = record->nextClass) {
    if (!(record->name == rest.substr(0, dot))) continue;
    const PropertyRow* const property = FindProperty(*record, rest.substr(dot + 1));
    const bool isComputed =
        property != nullptr && property->fieldOffset == 0 && (property->flags & Flags::Shared) == 0;
    return isComputed ? property->setter : nullptr;
  }
  return nullptr;
}

void _InitPluginEntrypoints() {
  entries.resize(PluginEntryCount);
  for (std::size_t entry = 0; entry < EntryNames.size(); ++entry) {
    entries[entry] = RuntimeLookupPluginEntrypoint(EntryNames[entry]);
  }
}

const std::vector<Function>& pluginEntries() {
  return entries;
}

void releasePluginEntries() {
  entries.clear();
}

}  // namespace veldrin
