// The blocks of data in the page: JSON, packed. Each is read when it is first asked for.
import { inflated } from "./inflate.ts";

const begun = new Map<string, Promise<unknown>>();

async function read(id: string): Promise<unknown> {
    const block = document.getElementById(id);
    return block === null ? null : await inflated(block).json();
}

/** Begins to read blocks that will be asked for soon: reading is waiting for the most part. */
export function beginReading(ids: readonly string[]): void {
    for (const id of ids) {
        const block = read(id);
        block.catch(() => undefined); // told to whoever asks for it
        begun.set(id, block);
    }
}

/** What the block `id` holds; null if the page has no such block. Throws where its bytes are damaged. */
export async function readBlock<T>(id: string): Promise<T | null> {
    const block = begun.get(id) ?? read(id);
    begun.delete(id);
    return (await block) as T | null;
}
