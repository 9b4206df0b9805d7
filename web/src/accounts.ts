// Opens the index of a batch: reads what the page holds of its accounts, and shows it.
import { Index, type IndexHead } from "./accounts/index_data.ts";
import { showIndex } from "./accounts/page.ts";
import { IndexView } from "./accounts/view.ts";
import { beginReading, readBlock } from "./data/blocks.ts";
import { Table, type TableBlock } from "./data/table.ts";
import { openPage } from "./page/opening.ts";

async function start(): Promise<void> {
    beginReading(["head", "accounts"]);
    const [head, accounts] = await Promise.all([readBlock<IndexHead>("head"), readBlock<TableBlock>("accounts")]);
    if (head === null || accounts === null) throw new Error("the page has no data");
    await showIndex(new IndexView(new Index(head, new Table(accounts))));
}

openPage(start);
