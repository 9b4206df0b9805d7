// Unpacks the blocks of data that the page holds, and prints a line for each.

async function unpacked(block: Element): Promise<string> {
    const bytes = Uint8Array.from(atob(block.textContent ?? ""), (digit) => digit.charCodeAt(0));
    const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
    return new Response(stream).text();
}

for (const block of document.querySelectorAll('script[type="application/octet-stream"]')) {
    const line = document.createElement("p");
    const { rows } = JSON.parse(await unpacked(block));
    line.textContent = rows === undefined ? block.id : `${block.id}: ${rows}`;
    document.body.append(line);
}
