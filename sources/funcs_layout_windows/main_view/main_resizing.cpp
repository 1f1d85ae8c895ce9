#include "sources/funcs_layout_windows/main_view/main_resizing.h"

#include "sources/funcs_layout_windows/main_view/main_view_errors.h"
#include "sources/win32/controls.h"

std::int32_t on_WM_SIZE(HWND hwnd_MW, WPARAM /*wParam*/, LPARAM lParam, STR_GeomLt* pSTR_GeomLt,
                        HWND hWndBTN00, HWND hWndBTN02, HWND hWndBTN_Apply, HWND hwnd_CB_Profile,
                        HWND hwnd_CB_Action)
{
    if (hwnd_MW == nullptr || pSTR_GeomLt == nullptr || hWndBTN00 == nullptr || hWndBTN02 == nullptr)
        return report<kMainSizeInput>(hwnd_MW, pSTR_GeomLt, hWndBTN00, hWndBTN02);

    pSTR_GeomLt->i_client_width = LOWORD(lParam);
    pSTR_GeomLt->i_client_height = HIWORD(lParam);
    compute_main_layout(pSTR_GeomLt, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));

    move_control(hWndBTN00, pSTR_GeomLt->rect_Scan);
    move_control(hWndBTN02, pSTR_GeomLt->rect_LoadProfile);
    move_control(hWndBTN_Apply, pSTR_GeomLt->rect_Apply);
    move_control(hwnd_CB_Profile, pSTR_GeomLt->rect_CB_Profile);
    move_control(hwnd_CB_Action, pSTR_GeomLt->rect_CB_Action);
    return 1;
}
