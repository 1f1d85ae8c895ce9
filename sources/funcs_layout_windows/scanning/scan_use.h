// Who is using the scan record. Re-entrancy: reading titles, asking the shell and making the list let
// messages in, so another Scan may be pressed during a scan, and the main window closed.
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

// Ends the use before the message box with which a scan ends. Re-entrancy: the box runs a message loop, in
// which another scan may replace the record: the first must not touch it afterwards.
void end_scan_use();

// Called when the main window goes and releases the record's blocks: a scan that is under way ends quietly.
void abandon_scans();

// True after abandon_scans until another scan begins.
bool is_scan_abandoned();
