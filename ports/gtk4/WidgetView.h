#pragma once

#include <glibmm/refptr.h>
#include <gtkmm/widget.h>
#include <sigc++/sigc++.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/View.h"

namespace cardpanels::gtk4 {

/// What every view here has: its widget, which lives at least as long as the view, and the views
/// inside it. A program that shows a loaded view finds this by `dynamic_cast`.
class WidgetView : public sigc::trackable {
 public:
  explicit WidgetView(Glib::RefPtr<Gtk::Widget> widget) : widget_(std::move(widget)) {}
  WidgetView(const WidgetView&) = delete;
  WidgetView& operator=(const WidgetView&) = delete;
  virtual ~WidgetView();

  Gtk::Widget& widget() const { return *widget_; }

  /// Whether the program is setting something right now, so that signals are not the user's.
  bool programSets() const { return programSets_ > 0; }

  /// Asked when the widget tells of a change: whether it is one that the user has made, and that
  /// was not asked for before.
  virtual bool isUsersChange() { return !programSets(); }

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

  void setWidgetHidden(bool hidden) { widget().set_visible(!hidden); }
  bool carriesTag(std::int64_t tag) const;
  std::shared_ptr<platform::View> subviewWithTag(std::int64_t tag) const;

 private:
  Glib::RefPtr<Gtk::Widget> widget_;
  std::vector<std::shared_ptr<platform::View>> subviews_;
  int programSets_ = 0;
};

}  // namespace cardpanels::gtk4
