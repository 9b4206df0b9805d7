// Bytes that the page holds packed: in zlib's format, in base64.

/** The bytes of an element's text, as what a response holds: a stream of them that no other process has a hand in. */
export function inflated(element: Element): Response {
    const digits = atob(element.textContent!.trim());
    const bytes = new Uint8Array(digits.length);
    for (let at = 0; at < digits.length; ++at) bytes[at] = digits.charCodeAt(at);
    return new Response(new Response(bytes).body!.pipeThrough(new DecompressionStream("deflate")));
}
