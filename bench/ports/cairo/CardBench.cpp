#include <benchmark/benchmark.h>
#include <cairo.h>

#include <string>

#include "bench/support/Ratios.h"
#include "dialog/CardScene.h"
#include "dialog/PictureLayout.h"
#include "ports/cairo/CardDrawing.h"

// What a redraw of the picture costs while one of 24 areas is dragged, beside filling its surface.

namespace {

using namespace cardpanels;

constexpr int kAreas = 24;
constexpr int kWidth = 1200;  // of a wide window at scale 2
constexpr int kHeight = 800;
constexpr double kLine = 32;

dialog::CardScene sceneOf24() {
  dialog::CardScene scene;
  scene.card.width = 242.65;
  scene.card.height = 153.01;
  scene.isShown = true;
  for (int i = 0; i < kAreas; ++i) {
    const double column = i % 6;
    const double row = i / 6;  // NOLINT(bugprone-integer-division)
    dialog::CardShape shape{.key = std::to_string(i),
                            .include = i % 2 == 0,
                            .number = i % 3 + 1,
                            .place = {10 + 38 * column, 8 + 36 * row, 34, 30},
                            .texts = {},
                            .warnings = {}};
    if (i % 8 == 0) {
      shape.warnings.push_back({dialog::AreaWarning::Kind::covered, shape.key, "It is covered."});
    }
    scene.shapes.push_back(shape);
  }
  return scene;
}

cairo::CardStyle style() {
  cairo::CardStyle style;
  style.colours = {.card = {1, 1, 1},
                   .ink = {0, 0, 0},
                   .onCard = {0, 0, 0},
                   .area = {0.2, 0.5, 0.9},
                   .error = {0.8, 0, 0}};
  style.fontFamily = "DejaVu Sans";
  style.fontSize = 26;
  style.chosen = "4";
  style.hasFocus = true;
  return style;
}

/// A surface to draw on.
struct Canvas {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
  cairo_t* cr = cairo_create(surface);
  Canvas() = default;
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() {
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
};

void redrawOf24Areas(benchmark::State& state) {
  const Canvas canvas;
  dialog::CardScene scene = sceneOf24();
  const dialog::PictureLayout layout(scene.card, kWidth, kHeight, kLine);
  const cairo::CardStyle look = style();
  cairo::CardDrawing drawing;
  for (auto _ : state) {
    scene.shapes[4].place.x += 0.01;  // the drag
    drawing.draw(canvas.cr, scene, layout, look);
    cairo_surface_flush(canvas.surface);
  }
}
BENCHMARK(redrawOf24Areas);

void fill(benchmark::State& state) {
  const Canvas canvas;
  for (auto _ : state) {
    cairo_set_source_rgb(canvas.cr, 0.9, 0.9, 0.9);
    cairo_paint(canvas.cr);
    cairo_surface_flush(canvas.surface);
  }
}
BENCHMARK(fill);

}  // namespace

int main(int argc, char** argv) {
  return bench::runWithRatios(argc, argv, {{"redrawOf24Areas", "fill", 10}});
}
