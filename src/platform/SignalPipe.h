#pragma once

namespace linealis {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, and SIGHUP) into bytes on a pipe, so that an event
/// loop handles them between two events. A signal that the parent process set to be ignored stays ignored. Returns
/// the descriptor that becomes readable, or -1 on failure. Call it once per process.
int PipeOfEndingSignals();

}  // namespace linealis
