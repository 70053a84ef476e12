// Small helpers for elements. Texts are always set as text, never as markup.

type Attributes = Record<string, string | number | boolean | undefined>;

/** Makes an element with attributes and children. An attribute that is false or undefined is left out. */
export function make<Name extends keyof HTMLElementTagNameMap>(
    name: Name, attributes: Attributes = {}, ...children: (Node | string)[]
): HTMLElementTagNameMap[Name] {
    const element = document.createElement(name);
    for (const [key, value] of Object.entries(attributes)) {
        if (value !== false && value !== undefined) {
            element.setAttribute(key, value === true ? "" : String(value));
        }
    }
    element.append(...children);
    return element;
}

export function button(text: string, onClick: () => void, attributes: Attributes = {}): HTMLButtonElement {
    const made = make("button", { type: "button", ...attributes }, text);
    made.addEventListener("click", onClick);
    return made;
}

/** Returns the element of the page with that id, which must exist. */
export function byId<Type extends HTMLElement = HTMLElement>(id: string): Type {
    return document.getElementById(id) as Type;
}

/** Sets the text, if it differs, so that screen readers do not repeat it. */
export function setText(element: Element, text: string): void {
    if (element.textContent !== text) {
        element.textContent = text;
    }
}
