#pragma once

#include <QImage>

/// What a camera over a yard could see, 1280x720: a fence, a drive to its gate, a tree, a cat.
QImage demoScene();
