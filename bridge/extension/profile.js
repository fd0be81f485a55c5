// A number for this browser profile, made once: one browser may run several profiles, each with an
// extension of its own, and their windows have to be told apart.

function randomIdentifier() {
    const bytes = crypto.getRandomValues(new Uint8Array(8));
    return Array.from(bytes, byte => byte.toString(16).padStart(2, '0')).join('');
}

export async function profileIdentifier(storage) {
    const { profile } = await storage.get('profile');
    if (/^[0-9a-f]{16}$/.test(profile))
        return profile;
    const made = randomIdentifier();
    await storage.set({ profile: made });
    return made;
}
