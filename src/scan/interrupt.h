#pragma once

/// From now on the first SIGINT or SIGTERM only sets the flag; a second one ends the program.
void catchInterrupts();

/// Whether such a signal has come.
bool isInterrupted();
