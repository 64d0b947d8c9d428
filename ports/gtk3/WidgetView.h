#pragma once

#include <glibmm/refptr.h>
#include <gtkmm/widget.h>
#include <sigc++/sigc++.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/NibOwner.h"
#include "platform/View.h"

namespace cardpanels::gtk3 {

/// What every view here has: its widget, which lives at least as long as the view, and the views
/// inside it. A program that shows a loaded view finds this by `dynamic_cast`.
class WidgetView : public sigc::trackable {
 public:
  explicit WidgetView(Glib::RefPtr<Gtk::Widget> widget) : widget_(std::move(widget)) {}
  WidgetView(const WidgetView&) = delete;
  WidgetView& operator=(const WidgetView&) = delete;
  virtual ~WidgetView();

  Gtk::Widget& widget() const { return *widget_.operator->(); }

  /// Whether the program is setting something right now, so that signals are not the user's.
  bool programSets() const { return programSets_ > 0; }

  /// Takes `view`, whose widget stands inside this one's.
  void addSubview(const std::shared_ptr<platform::View>& view) { subviews_.push_back(view); }

 protected:
  /// While it lives, the program sets something.
  class ProgramSets {
   public:
    explicit ProgramSets(WidgetView& view) : view_(view) { ++view_.programSets_; }
    ProgramSets(const ProgramSets&) = delete;
    ProgramSets& operator=(const ProgramSets&) = delete;
    ~ProgramSets() { --view_.programSets_; }

   private:
    WidgetView& view_;
  };

  void setWidgetHidden(bool hidden);
  bool carriesTag(std::int64_t tag) const;
  std::shared_ptr<platform::View> subviewWithTag(std::int64_t tag) const;

 private:
  Glib::RefPtr<Gtk::Widget> widget_;
  std::vector<std::shared_ptr<platform::View>> subviews_;
  int programSets_ = 0;
};

/// Fires `action` with `sender`, a `WidgetView`, whenever the user makes its widget emit `signal`.
/// Holds both weakly.
void connectAction(const std::shared_ptr<platform::View>& sender, const char* signal,
                   const platform::ActionTarget& action);

}  // namespace cardpanels::gtk3
