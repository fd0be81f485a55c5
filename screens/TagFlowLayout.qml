import QtQuick

// Chips from left to right, on as many lines as they need.
Flow {
    spacing: 6
}
