// Everything that start-up and the main window can report.
#pragma once

#include "errors/error_box.h"

// The rows of the table, in its order. The values that each report takes are those of its detail's
// placeholders.
enum MainRow : unsigned {
    SITE_GET_MESSAGE,
    SITE_CREATE_SCAN_BUTTON,
    SITE_CREATE_LOAD_BUTTON,
    SITE_CREATE_COMBOS,
    SITE_CREATE_NO_DC,
    SITE_CREATE_FONT_SIZE,
    SITE_CREATE_FONT,
    SITE_CREATE_COM,
    SITE_SCAN_FAILED,
    SITE_LOAD_FAILED,
    SITE_STORE_SET_UP_COMMAND,
    SITE_STORE_SET_UP_DROP,
    SITE_ABOUT,
    SITE_MENU_FILE_NEW,
    SITE_MENU_FILE_OPEN,
    SITE_MENU_FILE_SAVE,
    SITE_MENU_FILE_SAVE_AS,
    SITE_MENU_EXIT,
    SITE_MENU_HELP,
    MAIN_ROWS // how many
};

extern const ErrorSource errors_main;
