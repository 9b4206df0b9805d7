// Opens the page: reads what it holds of the accounts, and shows the first.
import { readAccounts } from "./data/account.ts";
import { beginReading } from "./data/blocks.ts";
import { wholeOf } from "./figures/range.ts";
import { openPage } from "./page/opening.ts";
import { showPage } from "./page/page.ts";
import { State } from "./page/state.ts";
import { View } from "./page/view.ts";

async function start(): Promise<void> {
    beginReading(["head", "0.days", "0.figures", "0.findings"]); // what the first account needs at once
    const { program, accounts } = await readAccounts();
    const state = new State(accounts, program);
    await state.account.open();
    state.range = wholeOf(state.account.days);
    await showPage(new View(state));
}

openPage(start);
