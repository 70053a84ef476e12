#pragma once

namespace linealis {

/// Turns the signals that ask a program to end, SIGTERM, SIGINT and SIGHUP, into something to read, so that they
/// are obeyed between two events and not in the middle of one. A signal that whoever started the program has told
/// it to ignore stays ignored. Returns the descriptor that becomes readable, or -1. There is one a process.
int PipeOfEndingSignals();

}  // namespace linealis
