// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

// Answers the next modal boxes from inside their own event loops: polls
// until a modal widget is shown, then hands it to answer (which clicks,
// closes or reads it); does so for `count` boxes one after the other.
// Polling, not a single shot, because a box may open later than the test's
// next line.
namespace gui_test {

class modal_answer {
public:
    explicit modal_answer(std::function<void(QWidget*)> answer, int count = 1)
        : answer(std::move(answer)), left(count)
    {
        QObject::connect(&timer, &QTimer::timeout, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            // The box answered last may still be closing.
            if (!modal || !modal->isVisible() || modal == last)
                return;
            last = modal;
            seen = true;
            if (--left == 0)
                timer.stop();
            this->answer(modal);
        });
        timer.start(20);
    }

    // Whether all boxes appeared and were answered.
    bool answered() const { return left == 0; }

    bool seen = false;

private:
    std::function<void(QWidget*)> answer;
    int left;
    QPointer<QWidget> last;
    QTimer timer;
};

} // namespace gui_test
