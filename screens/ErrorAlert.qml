import QtQuick
import Brinmoor

// What the application could not do, over the whole window until it is read.
Alert {
    id: alert

    required property string error

    signal dismissed
    signal settingsWanted

    readonly property bool leadsToSettings: message.includes("Automation")

    shown: error.length > 0
    title: Wording.words("Couldn’t finish that")
    message: ""
    confirmText: leadsToSettings ? Wording.words("Automation Settings") : Wording.words("OK")
    cancelText: leadsToSettings ? Wording.words("OK") : ""

    onErrorChanged: {
        // The words stay while the alert leaves.
        if (error.length > 0)
            message = error;
    }
    onConfirmed: {
        if (leadsToSettings)
            alert.settingsWanted();
        alert.dismissed();
    }
    onCancelled: alert.dismissed()
}
