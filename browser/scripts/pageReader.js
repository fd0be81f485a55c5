(() => {
    const socialHosts = ['instagram.com', 'linkedin.com', 'x.com', 'twitter.com'];

    const text = value => String(value || '').replace(/\s+/g, ' ').trim().slice(0, 600);
    const textOf = element => text(element && element.textContent);
    const all = (selector, root) => Array.from((root || document).querySelectorAll(selector));
    const meta = key => {
        const element = document.querySelector(`meta[property="${key}"],meta[name="${key}"]`);
        return text(element && element.content);
    };
    const isOrIsUnder = (host, domain) => host === domain || host.endsWith('.' + domain);

    const iconURL = () => {
        const named = /^(?:icon|shortcut icon|apple-touch-icon|apple-touch-icon-precomposed)$/i;
        const icons = all('link[rel]').filter(link => named.test(String(link.rel).trim()));
        const icon = icons.find(link => /(?:^|\s)icon(?:$|\s)/i.test(link.rel)) || icons[0];
        return icon && /^https?:\/\//i.test(icon.href) ? icon.href.slice(0, 4096) : undefined;
    };

    // The status number keeps a quoted or replied-to post from being taken for the page's own.
    const statusText = status => {
        const leadsToStatus = time => {
            const link = time.closest('a');
            const href = (link && link.getAttribute('href')) || '';
            return href.split('?')[0].endsWith('/status/' + status);
        };
        const article = all('article').find(each => all('a time', each).some(leadsToStatus));
        return textOf(article && article.querySelector('[data-testid="tweetText"]'));
    };

    // A permalink has one primary article; a scrolling feed has many and none of them is meant.
    const captionText = () => {
        const inDialog = all('[role="dialog"] article');
        const articles = inDialog.length === 1 ? inDialog : all('article');
        return textOf(articles.length === 1 ? articles[0].querySelector('h1') : null);
    };

    const postText = (host, path, description) => {
        const status = /\/status\/(\d+)/.exec(path);
        if ((isOrIsUnder(host, 'x.com') || host === 'twitter.com') && status)
            return statusText(status[1]);
        if (host === 'instagram.com' && /^\/(p|reel|tv)\//.test(path))
            return captionText();
        // What the page says of itself is safer than some card or comment of the feed.
        if (host.endsWith('linkedin.com') && /^\/(posts|feed\/update)\//.test(path))
            return description;
        return undefined;
    };

    // The first heading of a social site is never the content's.
    const headingText = host => socialHosts.some(domain => isOrIsUnder(host, domain))
        ? undefined
        : textOf(document.querySelector('main h1,article h1'));

    const host = location.hostname.replace(/^www\./, '');
    const description = meta('og:description') || meta('twitter:description') || meta('description');
    // Members that are undefined are left out of the JSON.
    return JSON.stringify({
        url: location.href,
        pageTitle: text(document.title),
        ogTitle: meta('og:title'),
        twitterTitle: meta('twitter:title'),
        description: description,
        iconURL: iconURL(),
        post: postText(host, location.pathname, description),
        heading: headingText(host),
    });
})()
