// The messages, as they are written. docs/bridge-protocol.md names them all.
// `id` stands first in every one: the helper program routes by it and reads no further.

export const protocolVersion = 1;

export const helloEvent = (profile, version) =>
    ({ id: 0, protocol: protocolVersion, event: 'hello', profile, version });

export const focusEvent = focused =>
    ({ id: 0, protocol: protocolVersion, event: 'focus', focused });

export const resultAnswer = (id, result) => ({ id, protocol: protocolVersion, result });

export const errorAnswer = (id, code) => ({ id, protocol: protocolVersion, error: { code } });

// A failure that the other side can tell from others by its code.
export class RequestError extends Error {
    constructor(code) {
        super(code);
        this.code = code;
    }
}
