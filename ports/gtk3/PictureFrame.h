#pragma once

#include <gtkmm/container.h>
#include <gtkmm/grid.h>

#include <memory>
#include <optional>

#include "dialog/BesideOrAbove.h"
#include "ports/gtk3/CardView.h"

namespace cardpanels::gtk3 {

/// Two widgets beside each other, or the second one above the first where that is too wide.
class BesideOrAbove final : public Gtk::Container {
 public:
  BesideOrAbove();
  ~BesideOrAbove() override;

  /// Takes both, which have no parent, and lets them go.
  void hold(Gtk::Widget& first, Gtk::Widget& second);
  void release();

 protected:
  Gtk::SizeRequestMode get_request_mode_vfunc() const override;
  void get_preferred_width_vfunc(int& least, int& natural) const override;
  void get_preferred_height_for_width_vfunc(int width, int& least, int& natural) const override;
  void get_preferred_height_vfunc(int& least, int& natural) const override;
  void on_size_allocate(Gtk::Allocation& allocation) override;
  void forall_vfunc(gboolean includesInternals, GtkCallback callback, gpointer data) override;
  void on_remove(Gtk::Widget* widget) override;
  GType child_type_vfunc() const override { return G_TYPE_NONE; }

 private:
  std::optional<dialog::BesideOrAbove> layout() const;

  Gtk::Widget* first_ = nullptr;
  Gtk::Widget* second_ = nullptr;
};

/// Stands a picture with the fields of a panel, which are in a grid, while it lives.
class PictureFrame {
 public:
  PictureFrame(std::shared_ptr<dialog::CardPicture> picture, Gtk::Widget& fields);
  PictureFrame(const PictureFrame&) = delete;
  PictureFrame& operator=(const PictureFrame&) = delete;
  ~PictureFrame();

  CardView& view() { return view_; }

 private:
  /// Shows the picture when it has something to show.
  void update();

  Gtk::Widget& fields_;
  CardView view_;
  BesideOrAbove both_;
};

}  // namespace cardpanels::gtk3
