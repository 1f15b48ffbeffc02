#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

// Answers the next modal box from inside its own event loop: polls until a
// modal widget is active, then hands it to answer (which clicks, closes or
// reads it). Polling, not a single shot, because the box may open later
// than the test's next line.
namespace gui_test {

class modal_answer {
public:
    explicit modal_answer(std::function<void(QWidget*)> answer)
        : answer(std::move(answer))
    {
        timer.setInterval(20);
        QObject::connect(&timer, &QTimer::timeout, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || !modal->isVisible())
                return;
            timer.stop();
            seen = true;
            this->answer(modal);
        });
        timer.start();
    }

    // Whether a modal box appeared and was answered.
    bool answered() const { return !timer.isActive(); }

    bool seen = false;

private:
    std::function<void(QWidget*)> answer;
    QTimer timer;
};

} // namespace gui_test
