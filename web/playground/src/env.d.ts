/// <reference types="vite/client" />
declare module '*.z?url' {
    const address: string;
    export default address;
}
