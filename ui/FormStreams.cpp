#include "ui/FormStreams.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "shell/objects/Color.h"

namespace veldrin {
namespace {

/// A property stream, composed entry by entry.
class StreamComposer {
 public:
  constexpr void integer(std::string_view key, std::int32_t value) {
    name(key);
    word(static_cast<std::uint32_t>(value));
  }
  constexpr void boolean(std::string_view key, bool value) {
    name(key);
    byte(value ? 1 : 0);
  }
  constexpr void color(std::string_view key, Color value) {
    name(key);
    byte(value.red);
    byte(value.green);
    byte(value.blue);
  }
  constexpr void text(std::string_view key, std::string_view value) {
    name(key);
    word(static_cast<std::uint32_t>(value.size()));
    for (const char character : value) bytes_[size_++] = character;
  }

  [[nodiscard]] constexpr std::string_view view() const { return {bytes_.data(), size_}; }

 private:
  constexpr void byte(std::uint8_t value) { bytes_[size_++] = static_cast<char>(value); }
  constexpr void word(std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) byte(static_cast<std::uint8_t>(value >> shift));
  }
  constexpr void name(std::string_view key) {
    for (const char character : key) bytes_[size_++] = character;
    bytes_[size_++] = ' ';
  }

  std::array<char, 512> bytes_{};
  std::size_t size_ = 0;
};

constexpr StreamComposer windowStream() {
  StreamComposer stream;
  stream.integer("Placement", 0);
  stream.integer("Width", FormWidth);
  stream.integer("Height", FormHeight);
  stream.integer("MinWidth", 64);
  stream.integer("MinHeight", 64);
  stream.integer("MaxWidth", 32000);
  stream.integer("MaxHeight", 32000);
  stream.integer("Frame", 0);
  stream.boolean("Composite", false);
  stream.boolean("HasBackColor", false);
  stream.color("BackColor", White);
  stream.text("Title", "Veldrin");
  stream.boolean("Visible", true);
  stream.boolean("FullScreen", false);
  stream.boolean("MenuBarVisible", true);
  stream.boolean("CloseButton", true);
  stream.boolean("Resizeable", false);
  stream.boolean("LiveResize", false);
  stream.boolean("MaximizeButton", false);
  stream.boolean("MinimizeButton", true);
  stream.integer("MacProcID", 0);
  return stream;
}

constexpr void firstEntries(StreamComposer& stream, const ControlRow& row) {
  stream.text("Name", row.name);
  stream.integer("Index", Control::NoArray);
  stream.integer("Left", row.left);
  stream.integer("Top", row.top);
  stream.integer("Width", row.width);
  stream.integer("Height", row.height);
  stream.boolean("LockLeft", row.extras.locked);
  stream.boolean("LockTop", row.extras.locked);
  stream.boolean("LockRight", row.extras.locked);
  stream.boolean("LockBottom", false);
  stream.integer("TabPanelIndex", 0);
  stream.integer("TabIndex", row.tabIndex);
}

constexpr void displayEntries(StreamComposer& stream) {
  stream.boolean("Visible", true);
  stream.text("HelpTag", "");
  stream.boolean("AutoDeactivate", true);
}

constexpr void fontEntries(StreamComposer& stream) {
  stream.text("TextFont", "System");
  stream.boolean("Bold", false);
  stream.boolean("Italic", false);
  stream.boolean("Underline", false);
}

constexpr void dataEntries(StreamComposer& stream) {
  stream.text("DataSource", "");
  stream.text("DataField", "");
}

constexpr void placardEntries(StreamComposer& stream, const ControlRow& row) {
  stream.boolean("TabStop", true);
  stream.text("InitialParent", row.parent);
  displayEntries(stream);
  stream.boolean("Enabled", true);
  stream.boolean("Value", false);
}

constexpr void staticTextEntries(StreamComposer& stream, const ControlRow& row) {
  stream.text("Text", row.text);
  stream.integer("TextAlign", static_cast<std::int32_t>(row.extras.alignment));
  stream.color("TextColor", Black);
  stream.boolean("Multiline", row.extras.multiLine);
  stream.boolean("Enabled", true);
  displayEntries(stream);
  fontEntries(stream);
  dataEntries(stream);
  stream.text("InitialParent", row.parent);
}

constexpr void pushButtonEntries(StreamComposer& stream, const ControlRow& row) {
  stream.boolean("TabStop", true);
  stream.text("Caption", row.text);
  stream.boolean("Default", false);
  stream.boolean("Cancel", false);
  stream.boolean("Enabled", true);
  displayEntries(stream);
  fontEntries(stream);
  stream.text("InitialParent", row.parent);
}

constexpr void popupMenuEntries(StreamComposer& stream, const ControlRow& row) {
  stream.boolean("TabStop", true);
  stream.boolean("Enabled", true);
  stream.text("InitialValue", row.text);
  stream.integer("ListIndex", 0);  // after the rows, because it selects one of them
  displayEntries(stream);
  fontEntries(stream);
  dataEntries(stream);
  stream.text("InitialParent", row.parent);
}

constexpr void textFieldEntries(StreamComposer& stream, const ControlRow& row) {
  stream.boolean("TabStop", true);
  stream.boolean("Border", true);
  stream.boolean("Password", false);
  stream.boolean("UseFocusRing", true);
  stream.color("TextColor", Black);
  stream.color("BackColor", White);
  stream.boolean("Enabled", true);
  stream.text("Format", "");
  displayEntries(stream);
  fontEntries(stream);
  stream.text("CueText", "");
  stream.text("Text", row.text);
  stream.text("Mask", "");
  stream.boolean("ReadOnly", false);
  stream.integer("LimitText", 0);
  stream.boolean("AcceptTabs", false);
  stream.integer("Alignment", 0);
  dataEntries(stream);
  stream.text("InitialParent", row.parent);
}

constexpr void checkBoxEntries(StreamComposer& stream, const ControlRow& row) {
  stream.boolean("TabStop", true);
  stream.text("Caption", row.text);
  stream.boolean("Enabled", true);
  displayEntries(stream);
  fontEntries(stream);
  stream.integer("State", row.extras.ticked ? 1 : 0);
  stream.boolean("Value", row.extras.ticked);
  dataEntries(stream);
  stream.text("InitialParent", row.parent);
}

constexpr StreamComposer controlStream(const ControlRow& row) {
  StreamComposer stream;
  firstEntries(stream, row);
  switch (row.kind) {
    case ControlKind::Placard:
      placardEntries(stream, row);
      break;
    case ControlKind::StaticText:
      staticTextEntries(stream, row);
      break;
    case ControlKind::PushButton:
      pushButtonEntries(stream, row);
      break;
    case ControlKind::PopupMenu:
      popupMenuEntries(stream, row);
      break;
    case ControlKind::TextField:
      textFieldEntries(stream, row);
      break;
    case ControlKind::CheckBox:
      checkBoxEntries(stream, row);
      break;
  }
  return stream;
}

/// The stream of the control in a row of the form's table. The row after the last means the window.
template <std::size_t Row>
constexpr StreamComposer composed() {
  if constexpr (Row == FormTable.size()) {
    return windowStream();
  } else {
    return controlStream(FormTable[Row]);
  }
}

template <std::size_t Row>
constexpr auto streamOf() {
  constexpr StreamComposer Composed = composed<Row>();
  FixedString<Composed.view().size()> bytes;
  std::ranges::copy(Composed.view(), bytes.characters.begin());
  return bytes;
}

template <std::size_t... Row>
constexpr auto streamConstants(std::index_sequence<Row...> /*rows*/) {
  return std::array{ConstantText<streamOf<Row>()>...};
}

constexpr auto Streams = streamConstants(std::make_index_sequence<FormTable.size() + 1>());

}  // namespace

constinit const std::array<StringConstant, FormTable.size() + 1> FormStreams = Streams;
constinit const StringConstant WindowStream = Streams.back();

}  // namespace veldrin
