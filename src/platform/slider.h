#pragma once

#include <QSlider>

// The slider of the program's windows. A value assigned by the program is pinned into the
// slider's range, and ValueChanged runs whenever the assigned number differs from the value the
// slider held before, even when pinning leaves the value where it was. A move by the user runs
// ValueChanged as well.
class Slider : public QSlider {
    Q_OBJECT
public:
    explicit Slider(QWidget* parent = nullptr);

    // Hides QSlider::setValue on purpose: every assignment by the program goes through the rule.
    void setValue(int value);

signals:
    void ValueChanged();

private:
    bool assigning_ = false;
};
