// Everything that the profile name window can report.
#pragma once

#include "errors/error_box.h"

// The rows of the table, in its order. The values that each report takes are those of its detail's
// placeholders.
enum ProfileNameRow : unsigned {
    SITE_NAME_CREATE_PARAMETER,
    SITE_NAME_CREATE_OK,
    SITE_NAME_CREATE_CANCEL,
    SITE_NAME_CREATE_EDIT,
    SITE_NAME_OK_INPUT,
    SITE_NAME_OK_EMPTY,
    SITE_NAME_OK_FAILED,
    SITE_NAME_CANCEL_INPUT,
    SITE_NAME_CANCEL_FAILED,
    PROFILE_NAME_ROWS // how many
};

extern const ErrorSource errors_profile_name;
