#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "shell/window/Toolkit.h"

namespace veldrin::test {

/// A user of the window, who acts on controls by name and reads what the window shows. Each test
/// program has a person for its toolkit, so the same tests run on all toolkits.
class Person {
 public:
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  virtual ~Person() = default;

  /// The toolkit that shows the window. The person closes message boxes.
  [[nodiscard]] virtual Toolkit& toolkit() = 0;

  /// Activates the window.
  virtual void turnToWindow() = 0;

  /// Runs the job inside the event loop. The loop ends when the job ends.
  virtual void runLoop(const std::function<void()>& job) = 0;

  /// Replaces the text of the field. The focus stays in the field.
  virtual void type(std::string_view field, std::string_view text) = 0;
  /// Takes the focus out of the field.
  virtual void leave(std::string_view field) = 0;
  virtual void press(std::string_view button) = 0;
  virtual void tick(std::string_view box, bool ticked) = 0;
  virtual void choose(std::string_view list, int row) = 0;
  virtual void command(std::string_view menuItem) = 0;
  virtual void closeWindow() = 0;

  /// The text shown by a field, a label or a list, with a carriage return between lines.
  [[nodiscard]] virtual std::string shown(std::string_view control) = 0;
  [[nodiscard]] virtual bool isTicked(std::string_view box) = 0;

  /// The text and place of a control: "Next @ 10 20 30 40". " hidden", " bold" and " off" (for
  /// disabled) follow if they apply.
  [[nodiscard]] virtual std::string looks(std::string_view control) = 0;
  /// The text of a menu item, with " ticked" and " off" if they apply; "" if there is none.
  [[nodiscard]] virtual std::string menuLooks(std::string_view item) = 0;
  [[nodiscard]] virtual std::string title() = 0;

  /// Formats the results of `looks` and `menuLooks`.
  static std::string described(const std::string& text, const std::array<int, 4>& place,
                               bool isVisible, bool isBold) {
    std::string all = text + " @";
    for (const int side : place) all += " " + std::to_string(side);
    return all + (isVisible ? "" : " hidden") + (isBold ? " bold" : "");
  }
  static std::string described(const std::string& text, bool isEnabled, bool isTicked = false) {
    return text + (isTicked ? " ticked" : "") + (isEnabled ? "" : " off");
  }

 protected:
  Person() = default;
};

/// The person of this test program.
std::unique_ptr<Person> newPerson();

}  // namespace veldrin::test
