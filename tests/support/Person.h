#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "shell/window/Toolkit.h"

namespace veldrin::test {

/// A person at the window: what one can do there and see of it, by the names of the controls. Each
/// test program has a person of its own toolkit, so that one set of tests tries them all.
class Person {
 public:
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  virtual ~Person() = default;

  /// What shows the window to this person. A dialog that only says something is dismissed.
  [[nodiscard]] virtual Toolkit& toolkit() = 0;

  /// Turns to the window that has been opened.
  virtual void turnToWindow() = 0;

  /// Runs the event loop with a job in it, and ends it when the job is done.
  virtual void runLoop(const std::function<void()>& job) = 0;

  /// Puts the text in the place of what the field holds. The focus stays in the field.
  virtual void type(std::string_view field, std::string_view text) = 0;
  /// Takes the focus out of the field.
  virtual void leave(std::string_view field) = 0;
  virtual void press(std::string_view button) = 0;
  virtual void tick(std::string_view box, bool ticked) = 0;
  virtual void choose(std::string_view list, int row) = 0;
  virtual void command(std::string_view menuItem) = 0;
  virtual void closeWindow() = 0;

  /// The text that a field, a label or a list shows; a carriage return breaks its lines.
  [[nodiscard]] virtual std::string shown(std::string_view control) = 0;
  [[nodiscard]] virtual bool isTicked(std::string_view box) = 0;

  /// What a control looks like: "Next @ 10 20 30 40", with " hidden" where it does not show,
  /// " bold", and " off" where it is disabled.
  [[nodiscard]] virtual std::string looks(std::string_view control) = 0;
  /// The text of an item in the menus, with " ticked" and " off"; "" where there is none.
  [[nodiscard]] virtual std::string menuLooks(std::string_view item) = 0;
  [[nodiscard]] virtual std::string title() = 0;

  /// The words for how something looks.
  static std::string described(const std::string& text, const std::array<int, 4>& place,
                               bool visible, bool bold) {
    std::string all = text + " @";
    for (const int side : place) all += " " + std::to_string(side);
    return all + (visible ? "" : " hidden") + (bold ? " bold" : "");
  }
  static std::string described(const std::string& text, bool enabled, bool ticked = false) {
    return text + (ticked ? " ticked" : "") + (enabled ? "" : " off");
  }

 protected:
  Person() = default;
};

/// The person of this test program.
std::unique_ptr<Person> newPerson();

}  // namespace veldrin::test
