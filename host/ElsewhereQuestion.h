#pragma once

// What programs that have opened nothing of ours yet open this library for.

extern "C" {

/// Asks beside the caller whether the print server's `queue` has card options of another print
/// server's PPD alone, for ten seconds at most. Calls `answered` once, with `data`, on any thread;
/// what no server tells is a no. Answers what stops it, null when nothing is asked.
__attribute__((visibility("default"))) void* cardpanelsAskElsewhere(
    const char* queue, void (*answered)(void* data, bool hasCardOptions), void* data);

/// Ends what `cardpanelsAskElsewhere` has answered, and waits for nothing: nobody needs to know any
/// more, and the answer will be a no unless it is on its way. To be called once for each.
__attribute__((visibility("default"))) void cardpanelsStopAsking(void* asking);
}
