// What can go wrong, with the words and the number of each kind. The words hold nothing that comes
// from outside: whoever reads them looks for the number of a refusal, and a title or an identifier
// might contain it by chance.
export const failures = {
    vanished: ['Can’t get object.', -1728],
    notRunning: ['Application isn’t running.', -600],
    notAuthorized: ['Brinmoor is not authorized to read this browser.', -1743],
    silent: ['The browser did not answer in time.', -1712],
    lost: ['The connection to the browser was lost.', -609],
    otherProtocol: ['The browser’s extension and Brinmoor differ in version.', -10000],
    badAnswer: ['The browser gave an answer that can’t be read.', -10000],
    unreadable: ['This page can’t be read.', -10000],
    otherText: ['Only the page reader can be run in a page.', -10000],
    readOnly: ['This value can’t be set.', -10006],
};
export const failureOfCode = { gone: 'vanished', changed: 'vanished', protocol: 'otherProtocol',
                        unreadable: 'unreadable' };

export function fail(kind) {
    const [message, number] = failures[kind];
    const error = new Error(message);
    error.errorNumber = number;
    throw error;
}

// Only the properties that an answer really has count, never what every object inherits.
export const own = (object, key) =>
    Object.prototype.hasOwnProperty.call(object, key) ? object[key] : undefined;
