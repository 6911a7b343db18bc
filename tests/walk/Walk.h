#pragma once

#include <QObject>
#include <QString>
#include <deque>
#include <functional>

class QWidget;

/// A person at the real program: each step is done when the windows are at rest, in whatever window is on top then. A step
/// may open a window; the next one works in it. What cannot be done ends the walk with a message and exit code 1.
class Walk : public QObject {
public:
    /// Pictures go to `folder`, numbered.
    explicit Walk(const QString& folder);

    void click(const QString& name);
    void doubleClick(const QString& name);
    void type(const QString& name, const QString& text);
    void keys(const QString& text);
    void press(int key, Qt::KeyboardModifiers modifiers = {});
    void picture(const QString& name);
    /// Goes on when it holds; the walk fails when it does not within 20 seconds.
    void until(const QString& what, std::function<bool()> holds);
    /// Any other step.
    void step(const QString& what, std::function<void()> action);

    /// Begins when the event loop runs.
    void start(QWidget* mainWindow);
    /// The window that a person would work with now.
    QWidget* top() const;

private:
    struct Step {
        QString what;
        std::function<void()> action;
        std::function<bool()> holds; ///< instead of an action
    };
    void proceed();
    void untilUsable(const QString& name);
    /// On a busy machine the window below keeps them for a moment.
    bool takesKeys() const;
    template<class W> W* find(const QString& name) const;
    [[noreturn]] void fail(const QString& message) const;

    std::deque<Step> m_steps;
    QWidget* m_main = nullptr;
    QString m_folder;
    int m_pictures = 0;
    int m_waited = 0;
    QString m_current;
};
