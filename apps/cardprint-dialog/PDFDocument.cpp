#include "apps/cardprint-dialog/PDFDocument.h"

#include <dlfcn.h>
#include <poppler.h>

#include <stdexcept>

#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

/// What is used of poppler-glib, which stays open.
struct Poppler {
  void* library = dlopen("libpoppler-glib.so.8", RTLD_NOW | RTLD_LOCAL);
// NOLINTBEGIN(bugprone-macro-parentheses): a member's name stands in none
#define CARDPANELS_FIND(name) \
  decltype(&::poppler_##name) name = find<decltype(&::poppler_##name)>("poppler_" #name)
  // NOLINTEND(bugprone-macro-parentheses)
  CARDPANELS_FIND(document_new_from_file);
  CARDPANELS_FIND(document_get_n_pages);
  CARDPANELS_FIND(document_get_page);
  CARDPANELS_FIND(page_get_size);
  CARDPANELS_FIND(page_render_for_printing);
  CARDPANELS_FIND(error_quark);
#undef CARDPANELS_FIND

  bool isWhole = document_new_from_file != nullptr && document_get_n_pages != nullptr &&
                 document_get_page != nullptr && page_get_size != nullptr &&
                 page_render_for_printing != nullptr && error_quark != nullptr;

  template <class Function>
  Function find(const char* name) {
    return library == nullptr ? nullptr : reinterpret_cast<Function>(dlsym(library, name));
  }
};

const Poppler& poppler() {
  static const Poppler opened;
  if (!opened.isWhole) throw std::runtime_error(_("PDF cannot be read here"));
  return opened;
}

template <class Object>
std::shared_ptr<Object> owned(Object* object) {
  return {object, [](Object* each) {
            if (each != nullptr) g_object_unref(each);
          }};
}

}  // namespace

PDFDocument::PDFDocument(const std::string& path) {
  GError* error = nullptr;
  gchar* const uri = g_filename_to_uri(path.c_str(), nullptr, &error);
  if (uri != nullptr) {
    document_ = owned(poppler().document_new_from_file(uri, nullptr, &error));
    g_free(uri);
  }
  if (error == nullptr) return;
  const bool isLocked = g_error_matches(error, poppler().error_quark(), POPPLER_ERROR_ENCRYPTED);
  g_error_free(error);
  throw std::runtime_error(isLocked ? _("it needs a password") : _("it is damaged"));
}

int PDFDocument::pages() const { return poppler().document_get_n_pages(document_.get()); }

std::shared_ptr<_PopplerPage> PDFDocument::page(int index) const {
  auto page = owned(poppler().document_get_page(document_.get(), index));
  if (!page) throw std::runtime_error(_("it is damaged"));
  return page;
}

void PDFDocument::measure(int index, double& width, double& height) const {
  poppler().page_get_size(page(index).get(), &width, &height);
}

void PDFDocument::draw(int index, cairo_t* cr) const {
  poppler().page_render_for_printing(page(index).get(), cr);
}

}  // namespace cardpanels::cardprint
