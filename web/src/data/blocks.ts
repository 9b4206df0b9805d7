// The blocks of data in the page: JSON, deflated, in base64. Each is read when it is first asked for.

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
    const digits = atob(base64);
    const bytes = new Uint8Array(digits.length);
    for (let at = 0; at < digits.length; ++at) bytes[at] = digits.charCodeAt(at);
    return bytes;
}

/** What the block `id` holds; null if the page has no such block. Throws where its bytes are damaged. */
export async function readBlock<T>(id: string): Promise<T | null> {
    const block = document.getElementById(id);
    if (block === null) return null;
    const packed = new Blob([bytesOf(block.textContent!.trim())]).stream();
    return (await new Response(packed.pipeThrough(new DecompressionStream("deflate"))).json()) as T;
}
