#include "sources/funcs_layout_windows/scanning/scan_use.h"

namespace
{

bool record_in_use = false;
bool abandoned = false;

} // namespace

ScanUse::ScanUse() : taken_(!record_in_use)
{
    if (!taken_)
        return;
    record_in_use = true;
    abandoned = false;
}

ScanUse::~ScanUse()
{
    if (taken_)
        end_scan_use();
}

void end_scan_use()
{
    record_in_use = false;
}

void abandon_scans()
{
    abandoned = true;
}

bool is_scan_abandoned()
{
    return abandoned;
}
