#include <QCoreApplication>

/// The least that any program with Qt takes.
int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    return 0;
}
