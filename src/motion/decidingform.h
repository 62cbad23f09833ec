// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "searchoptions.h"

#include <QWidget>

#include <array>
#include <memory>

namespace Ui {
class DecidingForm;
}

/// The controls for everything that is decided on what was measured.
///
/// Each detector has a threshold and a minimum of its own. What is shown rounded is changed only
/// when a person changes it.
class DecidingForm : public QWidget {
    Q_OBJECT

public:
    explicit DecidingForm(QWidget* parent = nullptr);
    ~DecidingForm() override;

    const DecidingOptions& options() const { return chosen; }

    /// Shows these, without a signal.
    void setOptions(const DecidingOptions& options);

    double highestThreshold() const;
    double thresholdStep() const;

public Q_SLOTS:
    void setThreshold(double value); ///< as a person does

Q_SIGNALS:
    /// A person has changed something.
    void changed();

private Q_SLOTS:
    void on_comboBoxDetector_activated(int index);
    void on_spinBoxThreshold_valueChanged(double value);
    void on_spinBoxMinimum_valueChanged(double seconds);
    void on_spinBoxBefore_valueChanged(double seconds);
    void on_spinBoxAfter_valueChanged(double seconds);
    void on_spinBoxMerge_valueChanged(double seconds);
    void on_spinBoxSensitivity_valueChanged(int sensitivity);
    void on_checkBoxRestless_toggled(bool isIgnored);

private:
    /// What each detector has for itself.
    struct Own {
        float threshold = 0.0F;
        double minimum = 0.0; ///< seconds
    };

    void showOptions();
    Own& own() { return ofDetector[std::size_t(chosen.detector)]; }

    std::unique_ptr<Ui::DecidingForm> ui;
    DecidingOptions chosen;
    std::array<Own, 2> ofDetector;
};
