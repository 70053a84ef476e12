// The one dialog of the page, with different contents.

import { byId, make } from "./dom.ts";
import { tr } from "./language.ts";

export interface DialogSetup {
    title: string;
    body: (Node | string)[];
    accept?: string; // the words on the button; none if there is nothing to accept
    onAccept?: () => void;
}

/** Shows the dialog. Resolves with whether the user accepted. */
export function showDialog(setup: DialogSetup): Promise<boolean> {
    const dialog = byId<HTMLDialogElement>("dialog");
    const accept = byId<HTMLButtonElement>("dialogAccept");
    if (dialog.open) {
        dialog.close("");
    }
    byId("dialogTitle").textContent = setup.title;
    byId("dialogBody").replaceChildren(...setup.body);
    const cancel = byId("dialogCancel"); // submits nothing, so Return in a field accepts
    cancel.textContent = setup.accept === undefined ? tr("Close") : tr("Cancel");
    cancel.onclick = closeDialog;
    accept.textContent = setup.accept ?? "";
    accept.hidden = setup.accept === undefined;
    accept.disabled = setup.accept === undefined;
    dialog.returnValue = "";
    dialog.showModal();
    return new Promise((resolve) => {
        dialog.onclose = () => {
            if (dialog.returnValue === "accept") {
                setup.onAccept?.();
            }
            resolve(dialog.returnValue === "accept");
        };
    });
}

export function closeDialog(): void {
    byId<HTMLDialogElement>("dialog").close("");
}

/** Asks for a name. Resolves with an empty text if the user cancels. */
export async function askName(title: string, proposed: string): Promise<string> {
    const field = make("input", { type: "text", class: "prose", "aria-label": tr("Name"), maxlength: 80 });
    field.value = proposed;
    return (await showDialog({ title, body: [field], accept: tr("Save") })) ? field.value.trim() : "";
}
