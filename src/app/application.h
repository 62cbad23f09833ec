#pragma once

/// The program: the application object, the main window and its event loop.
///
/// Every argument is the path of a video file. Returns the event loop's exit code.
int runApplication(int argc, char* argv[]);
