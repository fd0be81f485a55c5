import QtQuick
import Brinmoor

// What the application could not do, over the whole window until it is read.
Alert {
    id: alert

    required property string error
    required property bool leadsToSettings

    signal dismissed
    signal settingsWanted

    shown: error.length > 0
    title: Wording.words("Couldn’t finish that")
    message: ""
    cancelText: ""

    // The words stay while the alert leaves.
    function keepWords() {
        if (error.length === 0)
            return;
        message = error;
        asideText = leadsToSettings ? Wording.words("Automation Settings") : "";
    }
    onErrorChanged: alert.keepWords()
    onLeadsToSettingsChanged: alert.keepWords()
    onAsideChosen: {
        alert.settingsWanted();
        alert.dismissed();
    }
    onConfirmed: alert.dismissed()
    onCancelled: alert.dismissed()
}
