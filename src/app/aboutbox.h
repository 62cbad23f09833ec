#pragma once

class QWidget;

/// Says what the program is and what it is built on.
void showAbout(QWidget* parent);
