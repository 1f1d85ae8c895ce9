// Everything that the Modify Cell window can report.
#pragma once

#include "errors/error_box.h"

// The rows of the table, in its order. The values that each report takes are those of its detail's
// placeholders.
enum ModifyCellRow : unsigned {
    SITE_MODIFY_CREATE_OK,
    SITE_MODIFY_CREATE_CANCEL,
    SITE_MODIFY_CREATE_X,
    SITE_MODIFY_CREATE_Y,
    SITE_MODIFY_CREATE_WIDTH,
    SITE_MODIFY_CREATE_HEIGHT,
    SITE_MODIFY_NO_DC,
    SITE_MODIFY_FONT_SIZE,
    SITE_MODIFY_FONT,
    SITE_MODIFY_SUBCLASS,
    SITE_MODIFY_OK_INPUT,
    SITE_MODIFY_OK_NO_SCAN,
    SITE_MODIFY_OK_NO_LIST,
    SITE_MODIFY_OK_NO_ROW,
    SITE_MODIFY_OK_NO_EDITS,
    SITE_MODIFY_NO_PARENT,
    MODIFY_CELL_ROWS // how many
};

extern const ErrorSource errors_modify_cell;
