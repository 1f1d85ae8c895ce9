// Who is using the scan record. Titles, the shell and the making of the list let messages in while a scan is
// on its way: another Scan may be pressed, and the main window closed.
#pragma once

// A scan's use of the record, from before its counters are reset until its list is made. One at a time.
class ScanUse
{
public:
    // Takes the record, unless a scan is using it.
    ScanUse();
    ScanUse(const ScanUse&) = delete;
    ScanUse& operator=(const ScanUse&) = delete;
    ~ScanUse();

    // False while another scan is using the record: this one must leave it alone.
    [[nodiscard]] bool is_taken() const { return taken_; }

private:
    bool taken_;
};

// Ends the use ahead of a box with which a scan ends. Below the box another scan may replace the record, so
// the one that shows it must not touch the record afterwards.
void end_scan_use();

// Called when the main window goes and releases the record's blocks: a scan on its way ends quietly.
void abandon_scans();

// True from then on until another scan begins.
bool is_scan_abandoned();
