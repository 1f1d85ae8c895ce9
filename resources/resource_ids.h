// Identifiers of menus' commands and icons, shared by the resource script and the code.
#pragma once

#define ID_ICON_32 200
#define ID_ICON_16 201

#define ID_MENU_ABOUT 9
#define ID_MENU_MODIFY_CELL 101
