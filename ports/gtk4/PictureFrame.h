#pragma once

#include <gtkmm/widget.h>

#include <memory>
#include <optional>

#include "dialog/BesideOrAbove.h"
#include "ports/gtk4/CardView.h"

namespace cardpanels::gtk4 {

/// Two widgets beside each other, or the second one above the first where that is too wide.
class BesideOrAbove final : public Gtk::Widget {
 public:
  BesideOrAbove();
  ~BesideOrAbove() override;

  /// Takes both, which have no parent, and lets them go.
  void hold(Gtk::Widget& first, Gtk::Widget& second);
  void release();

 protected:
  Gtk::SizeRequestMode get_request_mode_vfunc() const override;
  void measure_vfunc(Gtk::Orientation orientation, int room, int& least, int& natural,
                     int& leastBaseline, int& naturalBaseline) const override;
  void size_allocate_vfunc(int width, int height, int baseline) override;

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

}  // namespace cardpanels::gtk4
