// The groups of the gallery.
#pragma once
#include "shelf.hpp"

namespace gallery {

void show_push_buttons(Shelf& shelf);
void show_check_boxes(Shelf& shelf);
void show_image_buttons(Shelf& shelf);
void show_program_buttons(Shelf& shelf);
void show_sliders(Shelf& shelf);
void show_combo_boxes(Shelf& shelf);
void show_text_boxes(Shelf& shelf);
void show_fields(Shelf& shelf);
void show_lists(Shelf& shelf);
void show_icons(Shelf& shelf);
void show_main_parts(Shelf& shelf);

} // namespace gallery
